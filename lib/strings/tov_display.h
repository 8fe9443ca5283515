// Numbers, sizes, durations and dates as texts for people. Sizes and dates follow the user's
// language; what stands in a text beside a number comes from the string tables.
//
// Byte counts are unsigned; K, M, G and T are 2^10, 2^20, 2^30 and 2^40 bytes. All results are new
// texts; null if memory runs out.

#pragma once

#include <cstdint>

#include "lib/objects/string.h"
#include "lib/text/number_format.h"

// The formatters of the user's language, null until tovStringInitString: whole numbers with
// grouping, and numbers with exactly one fraction digit.
extern pinorama::NumberFormat* gThousandFormatter;
extern pinorama::NumberFormat* gOneFractionDigitFormatter;

// Makes the two formatters for the language that the environment names (LC_ALL, LC_NUMERIC, LANG).
// Once at start-up, after initStringBundle; a further call makes them again. The functions that
// need a formatter call it themselves when nobody has.
void tovStringInitString();

// The text of the numbered string table, as iuGetIndCFString has it.
[[nodiscard]] TovStringRef TovStringGetFromTable(std::int16_t table, std::int16_t index);

// The size with one decimal and the unit word of table 1001 right after it: "1.5 MB" when the word
// is " MB". M begins one KiB above 1 MiB, and G and T likewise, so that 1 MiB still reads 1,024.0
// K.
[[nodiscard]] TovStringRef TovStringMakeSizeString(std::uint64_t bytes);

// The size as a whole number with a letter, cut off rather than rounded: "1024 K". From 1 to 1023
// bytes it is "1 K". The units change where those of TovStringMakeSizeString do.
[[nodiscard]] TovStringRef makeSmallSizeString(std::uint64_t bytes);

// The size and the exact count: "1.5 MB (1,572,864 bytes)".
[[nodiscard]] TovStringRef TovMakeDoubleSizeString(std::uint64_t bytes);

// The digits grouped as the language does.
[[nodiscard]] TovStringRef TovMakeNumberStringWithSeparators(std::int64_t value);

// The digits alone.
[[nodiscard]] TovStringRef TovMakeNumberString(std::uint64_t value);

// Two digits for 0 to 9, any other number as it is, negative ones too: "07", "10", "-5".
[[nodiscard]] TovStringRef TovStringMakePaddedNumberString(std::int32_t value);

// Minutes and seconds up to a full hour, "60:00"; above it hours, minutes and seconds, "1:00:01".
[[nodiscard]] TovStringRef TovStringMakeDurationString(std::uint32_t seconds);

// The date of a Mac time, seconds since 1904-01-01 00:00 on the clock of the place, in the user's
// language (LC_ALL, LC_TIME, LANG): medium date, with short time when `withTime` is nonzero. The
// fields are those of the count itself, whatever the time zone. With `withYear` 0 the text is day
// and full month alone. Null when the time cannot be written.
[[nodiscard]] TovStringRef TovStringMakeDateTimeString(std::uint32_t macTime, std::uint8_t withTime,
                                                       std::uint8_t withYear);

// The four bytes of the code as they lie in memory, as MacRoman characters; always four. On a
// little-endian machine the code 'TEXT' therefore reads "TXET". Intended: convOSTypeToString is the
// one that puts them in order.
[[nodiscard]] TovStringRef TovStringMakeOSTypeString(std::uint32_t code);
