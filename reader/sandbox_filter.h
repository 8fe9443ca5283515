// The filter of system calls as the program carries it: made by make_sandbox_filter.cpp, loaded by
// sandbox_calls.cpp.

#pragma once

#include <cstddef>
#include <cstdint>

#include <linux/filter.h>

namespace pinorama {

#if defined(__SANITIZE_ADDRESS__)
constexpr bool kHasSanitizers = true;
#elif defined(__has_feature)
constexpr bool kHasSanitizers = __has_feature(address_sanitizer);
#else
constexpr bool kHasSanitizers = false;
#endif

// A step of the filter.
struct SandboxStep {
    // What takes the place of the value that the step compares with.
    enum class FilledInto : std::uint8_t { nothing, socket, process };

    sock_filter step;
    FilledInto filled;
};

constexpr std::size_t kMostSandboxSteps = 512;

extern const SandboxStep kSandboxSteps[];
extern const std::size_t kSandboxStepCount;

}  // namespace pinorama
