// Percent escapes, with which a URI writes the bytes that must not stand for themselves: "%20". The
// standards differ on which characters besides letters and digits are plain, that is, stay.

#pragma once

#include "base/ascii.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace pinorama {

constexpr std::string_view kUnreservedRFC3986 = "-._~";       // section 2.3
constexpr std::string_view kUnreservedRFC2396 = "-_.!~*'()";  // section 2.3

constexpr std::size_t kPercentEscapeLength = 3;

// Whether a byte or a UTF-16 unit is a letter or a digit of ASCII or one of the `marks`.
template <typename Unit>
constexpr bool isPlainInURI(Unit unit, std::string_view marks)
{
    if (isASCIIAlphanumeric(unit)) return true;
    return isASCII(static_cast<char16_t>(unit)) &&
           marks.find(static_cast<char>(unit)) != marks.npos;
}

// Calls `put` with each of the three characters that escape a byte.
template <typename Put>
constexpr void putPercentEscape(char byte, Put put)
{
    const auto value = static_cast<unsigned char>(byte);
    put('%');
    put(kHexDigits[value >> 4]);
    put(kHexDigits[value & 0x0f]);
}

// The text with every byte escaped that is not plain.
std::string percentEscaped(std::string_view bytes, std::string_view marks);

// The byte, 0 to 255, whose escape the text begins with; -1 if it does not begin with a whole one.
template <typename Unit>
constexpr int percentEscapedByte(std::basic_string_view<Unit> text)
{
    if (text.size() < kPercentEscapeLength || text[0] != '%') return -1;
    const int high = hexDigitValue(text[1]);
    const int low = hexDigitValue(text[2]);
    return high < 0 || low < 0 ? -1 : high * 16 + low;
}

}  // namespace pinorama
