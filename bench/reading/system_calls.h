// Counts the system calls of a function, and the bytes that they read.

#pragma once

#include <cstdint>
#include <functional>
#include <optional>

namespace bench {

struct SystemCalls {
    int count = 0;
    std::uint64_t bytesRead = 0;  // by read and pread, as the kernel says
};

// Runs `work` twice in a child process, watches the second run, and returns its system calls.
// Nothing where processes may not be traced.
std::optional<SystemCalls> systemCallsOf(const std::function<void()>& work);

}  // namespace bench
