// Paths as texts, and as the bytes of the system calls. A path is nearly always UTF-8. A byte b of
// 0x80 or more that is not part of valid UTF-8 becomes the lone unit U+DC00 + b in a text, so that
// every path converts back to the same bytes:
//
//     const StringHolder text(createPathText("/srv/inv\xe4lid.jpg"));  // has the unit U+DCE4
//     open(pathBytes(text.get()).c_str(), O_RDONLY);                   // opens that file

#pragma once

#include <string>
#include <string_view>

#include "lib/objects/string.h"

namespace pinorama {

// Returns a new immutable text of a path's bytes, or null if memory runs out.
[[nodiscard]] TovStringRef createPathText(std::string_view bytes);

// The bytes of a path's text; empty for null. A lone surrogate that stands for no byte becomes
// U+FFFD, which names no existing file.
std::string pathBytes(const TovString* path);

}  // namespace pinorama
