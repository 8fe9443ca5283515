// Makes texts from bytes in the two encodings that the library reads.

#pragma once

#include <cstdint>
#include <string_view>

#include "lib/objects/string.h"

namespace pinorama {

// Return a new immutable text, or null for invalid UTF-8 and if memory runs out. The second one is
// for callers that have counted already: `unitCount` is the result of countUnitsOfUTF8(bytes).
[[nodiscard]] TovStringRef createStringFromUTF8(std::string_view bytes);
[[nodiscard]] TovStringRef createStringFromUTF8(std::string_view bytes, std::int32_t unitCount);

// Returns a new immutable text, or null if memory runs out.
[[nodiscard]] TovStringRef createStringFromMacRoman(std::string_view bytes);

}  // namespace pinorama
