// Comparing texts and searching in them.
//
// Every comparison goes by canonical equivalence: a precomposed letter equals the letter followed
// by its combining mark. A nonzero case flag compares case-sensitively, 0 ignores case. A letter is
// not found where marks follow it that the wanted text does not have, and an empty text is found
// nowhere. Lengths and indexes count UTF-16 units; C strings are MacRoman. Null handles and null C
// strings equal nothing and are found nowhere, save for TovStringCompare.

#pragma once

#include <cstdint>

#include "lib/objects/string.h"

// -1, 0 or 1, by the code points of the decomposed texts (without case when the flag is 0). Null
// comes before every text and equals null.
std::int32_t TovStringCompare(TovStringRef a, TovStringRef b, std::uint8_t caseFlag);

// True when the two compare as 0.
bool TovStringEqualsCString(TovStringRef string, const char* text, std::uint8_t caseFlag);

// True when the first occurrence of `prefix` lies at index 0.
bool TovStringBeginsWith(TovStringRef string, TovStringRef prefix, std::uint8_t caseFlag);
bool TovStringBeginsWithCString(TovStringRef string, const char* prefix, std::uint8_t caseFlag);

// True when the first occurrence of `suffix` ends the text. Only the first one is looked at, so
// "abcabc" does not end with "abc".
bool TovStringEndsWith(TovStringRef string, TovStringRef suffix, std::uint8_t caseFlag);
bool TovStringEndsWithCString(TovStringRef string, const char* suffix, std::uint8_t caseFlag);

// True when `sub` is found anywhere.
bool TovStringContains(TovStringRef string, TovStringRef sub, std::uint8_t caseFlag);

// The index of the first occurrence of `sub` at or after `start`; -1 if there is none and when
// `start` is negative or not below the length.
std::int32_t TovStringPosition(TovStringRef string, TovStringRef sub, std::int32_t start,
                               std::uint8_t caseFlag);

// How many units equal `unit` exactly; 0 for null.
std::int32_t TovStringCountCharAppearances(TovStringRef string, char16_t unit);

// Returns a new text in which the low byte of `to` stands for every ASCII character `from`. This
// happens in the UTF-8 form: beyond ASCII nothing is replaced, and a `to` beyond ASCII plants a
// single byte, so that all bytes are then decoded as TovStringFromUTF8 does. Null for null, for a
// text without a UTF-8 form (an empty one has none), and if memory runs out.
[[nodiscard]] TovStringRef TovStringReplaceCharacter(TovStringRef string, char16_t from,
                                                     char16_t to);

// Returns a new text of what follows the last full stop, or null if there is none. The first
// character is ignored: ".jpg" has no extension, and "a." has an empty one. Slashes are
// characters like any other.
[[nodiscard]] TovStringRef TovStringGetExtension(TovStringRef string);

// Returns a new text of what stands before that full stop (immutable), or a mutable copy of the
// whole text if there is none. Null for null.
[[nodiscard]] TovStringRef TovStringStripExtension(TovStringRef string);
