// Whole numbers of floating-point ones: where the language leaves the result open, and where the
// mathematical library would be loaded for nothing else.

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

// The largest whole number that is not larger: std::floor() without the mathematical library.
inline double baseFloor(double value)
{
    double whole = 0;
    return std::modf(value, &whole) < 0 ? whole - 1 : whole;
}

}  // namespace pinorama
