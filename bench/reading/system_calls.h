// Counts the system calls of a function.

#pragma once

#include <functional>
#include <optional>

namespace bench {

// Runs `work` twice in a child process, watches the second run, and returns the number of its
// system calls. Nothing where processes may not be traced.
std::optional<int> countSystemCalls(const std::function<void()>& work);

}  // namespace bench
