// A moment as the user's region writes it, for lines of a log: the date in its short form, the time
// with seconds. The region follows LC_ALL, LC_TIME, LANG; the clock is the process's zone.

#pragma once

#include <cstdint>
#include <string>

namespace pinorama {

// `unixSeconds` counts from 1970-01-01 00:00 UTC. The blanks that some regions put between time and
// half of the day are plain ones. Empty when the text cannot be made.
std::u16string shortDate(std::int64_t unixSeconds);
std::u16string timeWithSeconds(std::int64_t unixSeconds);

}  // namespace pinorama
