// Paths as texts and as the bytes that the system wants. A path is UTF-8 nearly always; a byte b of
// 0x80 or more that is not part of valid UTF-8 travels in a text as the lone unit U+DC00 + b, so
// that every path survives the way there and back.

#pragma once

#include <string>
#include <string_view>

#include "lib/objects/string.h"

namespace pinorama {

// Returns a new immutable text of a path's bytes, or null when memory runs out.
[[nodiscard]] TovStringRef createPathText(std::string_view bytes);

// The bytes of a path's text; empty for null. A lone surrogate that stands for no byte becomes
// U+FFFD, which names no existing file.
std::string pathBytes(const TovString* path);

}  // namespace pinorama
