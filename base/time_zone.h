// The time zone of the process (environment variable TZ, else the system's), for instants and for
// wall-clock times. Both count seconds since 1970-01-01 00:00, the one in UTC, the other on the
// clock of the zone.

#pragma once

#include <cstdint>

namespace pinorama {

// The seconds that the zone's clock is ahead of UTC at the instant `unixSeconds`; negative to the
// west. 0 for instants whose year does not fit the calendar of the C library.
std::int64_t utcOffsetAt(std::int64_t unixSeconds);

// The instant of a wall-clock time. A time that the clock shows twice in autumn is taken as the
// second one; one that it skips in spring is read with the offset in force before the change.
std::int64_t instantOfLocalTime(std::int64_t localSeconds);

}  // namespace pinorama
