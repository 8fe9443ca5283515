// UTF-8 and UTF-16 into each other, strictly: overlong forms, encoded surrogates, values beyond
// U+10FFFF and lone surrogates do not convert. Counts are bytes on the one side and UTF-16 units on
// the other.

#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/objects/string.h"

namespace platform {

// The units that valid UTF-8 decodes to, or -1 for invalid UTF-8.
std::int32_t countUnitsOfUTF8(std::string_view bytes);

// Decodes valid UTF-8 into `dest`, which has room for countUnitsOfUTF8(bytes) units.
void decodeUTF8(std::string_view bytes, char16_t* dest);

// The bytes of the UTF-8 form, or -1 when a surrogate stands alone.
std::int32_t countBytesOfUTF8(std::u16string_view units);

// Encodes into `dest`, which has room for countBytesOfUTF8(units) bytes. No terminator.
void encodeUTF8(std::u16string_view units, char* dest);

// Returns a new immutable text, or null for invalid UTF-8 and when memory runs out.
[[nodiscard]] TovStringRef createStringFromUTF8(std::string_view bytes);

// The UTF-8 form for a place that has to show something: what does not convert becomes U+FFFD.
std::string displayUTF8(std::u16string_view units);

}  // namespace platform
