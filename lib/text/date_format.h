// Dates as the user's language writes them.

#pragma once

#include <cstdint>
#include <string>

#include "lib/objects/string.h"

namespace pinorama {

enum class DateStyle {
    date,         // medium: "Jan 1, 2000"
    dateAndTime,  // medium date, short time: "Jan 1, 2000, 12:00 AM"
    dayAndMonth,  // the pattern "d MMMM": "1 January"
};

// Returns a new text of the calendar fields of `seconds` since 1970, read with no time zone, or
// null when the moment cannot be written. `locale` is a name that dateLocale gives.
[[nodiscard]] TovStringRef createDateText(const std::string& locale, DateStyle style,
                                          std::int64_t seconds);

}  // namespace pinorama
