// The first 128 characters of Unicode, where most comparing and searching happens: none of them
// decomposes, and none combines with what stands before it.

#pragma once

#include <algorithm>
#include <string_view>

namespace platform {

inline bool isASCII(char16_t unit)
{
    return unit < 0x80;
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

}  // namespace platform
