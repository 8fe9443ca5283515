// Whole numbers of floating-point ones, where the language leaves the result open.

#pragma once

#include <cmath>
#include <cstdint>
#include <limits>

namespace pinorama {

// The number towards zero: 0 for NaN, and the nearest end of the range for what lies outside.
inline std::int64_t baseTruncate(double value)
{
    constexpr double kTwoTo63 = 9223372036854775808.0;
    if (std::isnan(value)) return 0;
    if (value >= kTwoTo63) return std::numeric_limits<std::int64_t>::max();
    if (value < -kTwoTo63) return std::numeric_limits<std::int64_t>::min();
    return static_cast<std::int64_t>(value);
}

}  // namespace pinorama
