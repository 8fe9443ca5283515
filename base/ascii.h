// The first 128 characters of Unicode, which most texts consist of: none of them decomposes, none
// combines with what stands before it, and each is one byte, one unit and the same number in every
// encoding of the library.

#pragma once

#include <algorithm>
#include <string_view>

namespace pinorama {

constexpr bool isASCII(char16_t unit)
{
    return unit < 0x80;
}

// True for the letters A to Z and a to z and the digits, as bytes or as units.
template <typename Unit>
constexpr bool isASCIIAlphanumeric(Unit unit)
{
    return (unit >= 'a' && unit <= 'z') || (unit >= 'A' && unit <= 'Z') ||
           (unit >= '0' && unit <= '9');
}

inline constexpr char kHexDigits[] = "0123456789ABCDEF";
inline constexpr char kLowerHexDigits[] = "0123456789abcdef";

// The value of a hexadecimal digit, whose letters may be large or small; -1 for anything else.
template <typename Unit>
constexpr int hexDigitValue(Unit unit)
{
    if (unit >= '0' && unit <= '9') return unit - '0';
    if (unit >= 'A' && unit <= 'F') return unit - 'A' + 10;
    if (unit >= 'a' && unit <= 'f') return unit - 'a' + 10;
    return -1;
}

inline bool isASCII(std::u16string_view units)
{
    return std::all_of(units.begin(), units.end(), [](char16_t unit) { return isASCII(unit); });
}

// The unit without its case; meant for ASCII and the same as Unicode's case folding there.
inline char16_t foldedASCII(char16_t unit)
{
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + (u'a' - u'A')) : unit;
}

}  // namespace pinorama
