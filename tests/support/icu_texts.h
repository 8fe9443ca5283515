// What ICU makes of texts and bytes: the second opinion on our own conversions. Each function needs
// one call of ICU with more room than any text can take.

#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace test {

// UTF-8 of the units; nothing when a surrogate stands alone.
std::optional<std::string> utf8ByICU(std::u16string_view units);

// The same with U+FFFD for every lone surrogate.
std::string displayUTF8ByICU(std::u16string_view units);

// The units of the bytes; nothing when they are no UTF-8.
std::optional<std::u16string> unitsByICU(std::string_view utf8);

// MacRoman ("macintosh") of the units; nothing when it lacks a character.
std::optional<std::string> macRomanByICU(std::u16string_view units);

std::u16string macRomanUnitsByICU(std::string_view bytes);

}  // namespace test
