// Parses dates in a fixed pattern (Unicode Technical Standard 35, date field symbols), whatever the
// user's language.
//
//     DateParser* parser = createDateParser(u"yyyy:MM:dd HH:mm:ss");
//     const ObjectHolder<TovDateRef> date(createDateFromText(parser, u"2024:02:29 12:00:00"));
//     releaseDateParser(parser);

#pragma once

#include <string_view>

#include "lib/objects/values.h"

namespace pinorama {

class DateParser;  // defined in the source only

// Returns a new parser of `pattern`, which is borrowed and outlives it, in the neutral locale ("AM"
// and "PM", Latin digits), or null if memory runs out. A two-digit year lies between 80 years
// before and 20 years after the first text that the parser reads. Owned by the caller; released
// with releaseDateParser.
[[nodiscard]] DateParser* createDateParser(const char16_t* pattern);

void releaseDateParser(DateParser* parser);

// Returns a new date, or null when `text` does not begin as the pattern says or names a day or hour
// that does not exist. The text is a wall-clock time in the time zone of the process at the moment
// of the call; what it does not name is 0, on the first of January 1970. Text after the match is
// ignored. A null parser reads nothing.
[[nodiscard]] TovDateRef createDateFromText(const DateParser* parser, std::u16string_view text);

}  // namespace pinorama
