// Typed values out of dictionaries whose content nobody guarantees. A null container, one that is
// no dictionary, a missing key and a value of another kind all give the default, which is 0, 0.0,
// false or null unless a function says otherwise; nothing is reported.
//
// A number gives whatever width is asked for: too wide an integer keeps its low bits (70000 as 16
// bits is 4464), a floating-point number is truncated toward zero. A boolean is not a number here,
// nor a number a boolean.

#pragma once

#include <cstdint>

#include "lib/conv/time_conversions.h"
#include "lib/objects/collections.h"
#include "lib/objects/values.h"

// The value of `key` as a number. Negative numbers come as their bit pattern: -1 as 32 bits is
// 4294967295.
std::uint16_t convGetUInt16(TovTypeRef container, TovStringRef key);
std::uint32_t convGetUInt32(TovTypeRef container, TovStringRef key);
std::uint64_t convGetUInt64(TovTypeRef container, TovStringRef key);
float convGetFloat(TovTypeRef container, TovStringRef key);
double convGetDouble(TovTypeRef container, TovStringRef key);

// The value of `key` as a boolean.
bool convGetBoolean(TovTypeRef container, TovStringRef key);

// The value of `key`, a date, in minutes since 1960 on the clock of UTC. The two are the same.
VardenTime convGetVDTime(TovTypeRef container, TovStringRef key);
VardenTime convGetDate(TovTypeRef container, TovStringRef key);

// The number at `index` of an array; 0 also out of range and when `array` is no array.
std::uint32_t convGetNumberFromArray(TovTypeRef array, std::int32_t index);

// The text itself, borrowed: it lives as long as the dictionary.
TovStringRef convGetTovStringRef(TovTypeRef container, TovStringRef key);

// Returns a new text: a copy of a text, or the digits of a number read as 32 bits without sign (-5
// gives "4294967291"). Null by default and when memory runs out.
[[nodiscard]] TovStringRef convCopyTovStringRef(TovTypeRef container, TovStringRef key);

// Returns a new mutable text: the texts of an array joined by line feeds. Elements that are no
// texts are skipped. A line feed follows every text but one at the array's last index, so an array
// that ends in something else gives a text that ends in a line feed. An empty array gives an empty
// text. Null by default and when memory runs out.
[[nodiscard]] TovStringRef convCopyTovStringRefFromArrayOfStrings(TovTypeRef container,
                                                                  TovStringRef key);

// The integer that a text begins with, read as 32 bits with sign: beyond them the nearest end of
// the range, and a negative number as its 64-bit pattern.
std::uint64_t convGetUInt64FromDictString(TovTypeRef container, TovStringRef key);

// The numbers of an array packed as a version: 0x30000000 + major << 16 + minor << 8 + third, each
// part the number plus 48, or 0 when the array is too short for it. The parts are added, so numbers
// above 207 carry into the next. 1 when there is no such array.
std::uint32_t convGetVersion(TovTypeRef container, TovStringRef key);

// Writes the date as seconds since 1904-01-01 00:00 on the local clock, with the zone offset in
// force at that date, fractions floored, modulo 2^32. 0 for a null date.
// TovStringMakeDateTimeString reads the same count.
void convCFDateRefToMacTime(TovDateRef date, std::uint32_t* outSeconds);
