// Seconds since 1904 out of the absolute time of a date object.

#pragma once

#include <cstdint>

constexpr std::uint32_t kMacSecondsOf1970 = 2082844800;  // from 1904-01-01 to 1970-01-01
constexpr double kUnixSecondsOf2001 = 978307200.0;       // from 1970-01-01 to 2001-01-01

// Whole seconds since 1904 in UTC of seconds since 2001-01-01 UTC. A fraction is floored, so that
// 23:59:59.9 does not show as the next day; times before 1904 and from 2040-02-06 06:28:16 wrap at
// 32 bits; what is no number gives 0.
std::uint32_t macSecondsInUTC(double absoluteTime);

// The same on the wall clock of the process's time zone, with the zone offset in force at that
// time.
std::uint32_t macSecondsOnLocalClock(double absoluteTime);
