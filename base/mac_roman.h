// The MacRoman character set: one byte for each character, the lower half ASCII (control characters
// included), the upper half as its last published edition has it (0xDB is the euro sign).
// Counts are bytes on the one side and UTF-16 units on the other; they are always equal.

#pragma once

#include <cstdint>
#include <string_view>

namespace pinorama {

// The unit of a MacRoman byte. Every byte has one.
char16_t macRomanUnit(std::uint8_t byte);

// The MacRoman byte of a unit, or -1 when the set has no such character.
int macRomanByte(char16_t unit);

// Decodes `bytes` into `dest`, which has room for as many units.
void decodeMacRoman(std::string_view bytes, char16_t* dest);

// True when every unit has a MacRoman byte.
bool isMacRoman(std::u16string_view units);

// Encodes units for which isMacRoman holds into `dest`, which has room for as many bytes. No
// terminator.
void encodeMacRoman(std::u16string_view units, char* dest);

}  // namespace pinorama
