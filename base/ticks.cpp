#include "base/ticks.h"

#include <ctime>

namespace pinorama {

std::uint32_t tickCount()
{
    timespec now = {};
    clock_gettime(CLOCK_MONOTONIC, &now);
    const auto seconds = static_cast<std::uint64_t>(now.tv_sec);
    const auto nanoseconds = static_cast<std::uint64_t>(now.tv_nsec);
    return static_cast<std::uint32_t>(seconds * 60 + nanoseconds * 60 / 1'000'000'000);
}

}  // namespace pinorama
