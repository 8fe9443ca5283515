// Text handles: making, releasing, measuring, reading and appending.
//
// A handle is a reference to a counted text of UTF-16 units, mutable or immutable. Null means no
// text, and every function accepts it. Lengths and indexes count UTF-16 units. The caller owns
// every handle that a function returns, and releases it with TovStringRelease or uCFRelease. If
// memory runs out, the result is null, and an append leaves its target unchanged.
//
//     TovStringRef line = TovStringCreateMutable();
//     TovStringAppendCString(&line, "f/");
//     TovStringAppendNumber(&line, 8);
//     show(line);
//     TovStringRelease(&line);  // also sets `line` to null

#pragma once

#include <cstdint>

#include "lib/objects/string.h"

// Always null, the handle that means no text.
TovStringRef TovStringGetEmpty();

// Returns a new empty mutable text.
[[nodiscard]] TovStringRef TovStringCreateMutable();

// Returns a new mutable text of the same units; null for null.
[[nodiscard]] TovStringRef TovStringGetCopy(TovStringRef string);

// Returns a new immutable text of the units that lie between `start` and `start + length`. The
// range may run past either end of the text and is then cut there, so the result is empty rather
// than null when no unit is left. Null for null.
[[nodiscard]] TovStringRef TovStringCreateWithSubstring(TovStringRef string, std::int32_t start,
                                                        std::int32_t length);

// Returns a new text of a random UUID (RFC 4122, version 4): 36 upper-case characters, 8-4-4-4-12.
// Null when the system gives no random bytes.
[[nodiscard]] TovStringRef TovGetUUIDString();

// Sets the caller's variable to null without giving the reference back.
void TovStringInvalidate(TovStringRef* string);

// Gives the reference back, when there is one, and sets the caller's variable to null. Returns 0.
std::int16_t TovStringRelease(TovStringRef* string);

// True when the handle is not null.
bool TovStringIsValid(TovStringRef string);

// The number of units; 0 for null.
std::int32_t TovStringGetLength(TovStringRef string);

// The number of bytes before the terminator; 0 for null. Held at INT32_MAX.
std::int32_t TovStringGetCLength(const char* text);

// The unit at `index`; 0 for null and out of range.
char16_t TovStringGetUniChar(TovStringRef string, std::int32_t index);

// The decimal integer that the text begins with, after white space and a sign. Beyond 32 bits the
// nearest end of the range; 0 if there is no digit.
std::int32_t TovStringGetIntValue(TovStringRef string);

// The number that the text begins with, after white space and a sign: decimal digits with a point,
// whatever the locale, and an optional exponent. No hexadecimal form and no words such as "inf".
// 0.0 if there is no digit; a number too large for a double is an infinity.
double TovStringGetDoubleValue(TovStringRef string);

// The three below change the text that `target` points to. A null pointer or handle, an immutable
// text and a lack of memory leave it as it is.

// Appends the MacRoman bytes up to the terminator.
void TovStringAppendCString(TovStringRef* target, const char* text);

// Appends the units of `string`, which may be the target itself.
void TovStringAppendTovString(TovStringRef* target, TovStringRef string);

// Appends the decimal digits.
void TovStringAppendNumber(TovStringRef* target, std::uint64_t value);
