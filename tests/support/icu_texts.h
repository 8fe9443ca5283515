// Conversions of ICU, to which the tests compare our own. Each function is one call of ICU with a
// buffer that is larger than any result.

#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace test {

// UTF-8 of the units; nothing if they contain a lone surrogate.
std::optional<std::string> utf8ByICU(std::u16string_view units);

// The same with U+FFFD for every lone surrogate.
std::string displayUTF8ByICU(std::u16string_view units);

// The units of the bytes; nothing if these are not UTF-8.
std::optional<std::u16string> unitsByICU(std::string_view utf8);

// MacRoman ("macintosh") of the units; nothing if it lacks a character.
std::optional<std::string> macRomanByICU(std::u16string_view units);

std::u16string macRomanUnitsByICU(std::string_view bytes);

}  // namespace test
