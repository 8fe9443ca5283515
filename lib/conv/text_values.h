// Parses values in notations of other programs: sizes with a unit, four-character codes, packed
// version numbers, small rationals, dates and durations. Every parser is lenient: input that it
// cannot read gives 0, and nothing is reported. No function takes ownership of its texts.

#pragma once

#include <cstdint>

#include "lib/conv/time_conversions.h"
#include "lib/objects/string.h"

// The number of bytes in a text such as "1.5 MB". The unit is one of "bytes", "KB", "MB" and "GB"
// (of 1024), spelled exactly so, and its first occurrence ends the text. The number stands before
// the unit and one more character, which is taken for a blank whatever it is: "12bytes" is 1. It
// has a decimal point in every locale.
//
// Fractions of a byte are dropped. A negative size comes as its 64-bit pattern, and what does not
// fit 64 bits as the nearest end of the range. 0 without a unit and for a text of nothing but the
// unit.
std::uint64_t convGetSizeFromStringWithUnit(TovStringRef text);

// The first four units as a code, in memory order: the first one is the byte at the lowest address.
// A unit that MacRoman lacks counts as a blank. Texts of fewer than four units give 0.
std::uint32_t convStringToOSType(TovStringRef text);

// Returns a new text: the four bytes of a code in memory order as MacRoman, up to the first zero
// byte. Undoes convStringToOSType on every processor. Null if memory runs out.
[[nodiscard]] TovStringRef convOSTypeToString(std::uint32_t code);

// Returns a new text, "Skallion 5.0.1" or "Brennick 1.2.3": the highest byte of `version` selects
// the family (87 is the second), the three others are the digits. A digit of 10 or more shows as
// the MacRoman character that many places after "0", counted modulo 256; code 0 shows as nothing.
// Null if memory runs out.
[[nodiscard]] TovStringRef convVDVersionToString(std::uint32_t version);

// The low 16 bits divided by the high 16 bits; 0.0 when either is 0.
double convRationalToFloat(std::uint32_t rational);

// The date parsers. They need convInit and read the wall clock of the process's time zone; the
// result is in UTC. 0 for a text that does not match the pattern, and before convInit. Text after
// the date is ignored.

// The text under `key` of a dictionary as "dd.MM.yy HH:mm". Two digits of a year lie between 80
// years back and 20 years ahead.
VardenTime convGetGermanDateTimeAsVDTime(TovTypeRef dictionary, TovStringRef key);

// A date "MM/dd/yyyy" and a time "h:m:s a" in two texts.
VardenTime convGetVDTimeFromDateAndTimeString(TovStringRef date, TovStringRef time);

// "yyyy:MM:d" and "yyyy:MM:d HH:mm:ss".
VardenTime convConvertiViewDate(TovStringRef text);
VardenTime convConvertiViewDateTime(TovStringRef text);

// The seconds of a duration "hh:mm:ss", modulo 2^32. The three numbers are the units 0 and 1, 3 and
// 4, and 6 and 7. The units between them are ignored, and no number is checked against its range.
std::uint32_t convConvertiViewDuration(TovStringRef text);
