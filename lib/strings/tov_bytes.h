// Texts from bytes and bytes from texts: MacRoman for C strings and Pascal strings, UTF-8, UTF-16.
//
// The byte form of a text is a C string: it ends at the first U+0000 of the text, although the
// whole text has to convert. A lone surrogate converts to nothing at all.
//
// Counts of bytes and units are signed; a negative count, a null pointer with a count above 0 and a
// lack of memory give null. A null pointer with a count of 0 gives an empty text. Results are new
// and immutable.

#pragma once

#include <cstdint>

#include "lib/objects/string.h"

// Decodes MacRoman. Every byte has a character, a zero byte U+0000.
[[nodiscard]] TovStringRef TovStringFromCString(const char* bytes, std::int32_t byteCount);

// Decodes UTF-8; when the bytes are not valid UTF-8 from first to last (overlong forms, encoded
// surrogates and values beyond U+10FFFF are not) all of them are decoded as MacRoman. A byte-order
// mark stays.
[[nodiscard]] TovStringRef TovStringFromUTF8(const char* bytes, std::int32_t byteCount);

// Copies the units as they are, lone surrogates included.
[[nodiscard]] TovStringRef TovStringFromUTF16(const char16_t* units, std::int32_t unitCount);

// Decodes the MacRoman bytes after the length byte. Null for null.
[[nodiscard]] TovStringRef TovStringFromPString(const std::uint8_t* pString);

// The number of bytes of the UTF-8 form, without terminator; 0 for null, for an empty text and for
// one that does not convert.
std::uint32_t TovStringGetUTF8Size(TovStringRef string);

// Writes the UTF-8 form to `dest`, which has space for TovStringGetUTF8Size bytes, and the number
// of bytes to `outSize`. No terminator. When there is nothing to write only the 0 is stored.
// `outSize` may be null; with a null `dest` nothing is written.
void TovStringCopyToUTF8(TovStringRef string, char* dest, std::uint32_t* outSize);

// The two below convert to MacRoman, or to UTF-8 when the text has a character that MacRoman lacks;
// apart from that they are as the two above.
std::uint32_t TovStringGetMacRomanSize(TovStringRef string);
void TovStringCopyToMacRoman(TovStringRef string, char* dest, std::uint32_t* outSize);

// Writes a length byte and the MacRoman form to `dest`, a buffer of 256 bytes; U+0000 is a
// character like any other here. False, and a length byte of 0, for null, for a text with a
// character that MacRoman lacks, and for more than 255 characters.
bool TovStringCopyToPString(TovStringRef string, std::uint8_t* dest);
