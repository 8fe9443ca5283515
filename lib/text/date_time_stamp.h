// A time in the format of the user's locale, for the lines of a log: the date in its short form,
// the time with seconds. The locale comes from LC_ALL, LC_TIME, LANG; the zone is that of the
// process.

#pragma once

#include <cstdint>
#include <string>

namespace pinorama {

// `unixSeconds` counts from 1970-01-01 00:00 UTC. The blanks that some locales put before "AM" and
// "PM" are plain ones. Empty if the text cannot be made.
std::u16string shortDate(std::int64_t unixSeconds);
std::u16string timeWithSeconds(std::int64_t unixSeconds);

}  // namespace pinorama
