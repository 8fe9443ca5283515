// UTF-8 and UTF-16 into each other, strictly: overlong forms, encoded surrogates, values beyond
// U+10FFFF and lone surrogates do not convert. Counts are bytes on the one side and UTF-16 units on
// the other; a text of more than a thousand million of either is refused as if it were invalid.

#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace pinorama {

// The units that valid UTF-8 decodes to, or -1 for invalid UTF-8.
std::int32_t countUnitsOfUTF8(std::string_view bytes);

// Decodes UTF-8 into `dest` up to the first invalid byte and to the last character that fits: all
// of valid UTF-8 when there is room for countUnitsOfUTF8(bytes) units. Returns the units written,
// which are the text: what follows them in `dest` is left as it was.
[[nodiscard]] std::size_t decodeUTF8(std::string_view bytes, std::span<char16_t> dest);

// The bytes of the UTF-8 form, or -1 when a surrogate stands alone.
std::int32_t countBytesOfUTF8(std::u16string_view units);

// Encodes into `dest` up to the first lone surrogate and to the last character that fits: all of a
// text without lone surrogates when there is room for countBytesOfUTF8(units) bytes. No terminator.
// Returns the bytes written, as above.
[[nodiscard]] std::size_t encodeUTF8(std::u16string_view units, std::span<char> dest);

// The UTF-8 form for a place that has to show something: what does not convert becomes U+FFFD.
std::string displayUTF8(std::u16string_view units);

}  // namespace pinorama
