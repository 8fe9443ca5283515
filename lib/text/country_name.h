// The names of countries in the user's language.

#pragma once

#include <string_view>

#include "lib/objects/string.h"

namespace pinorama {

// Returns a new text: the name of the country or territory whose ISO 3166-1 code of two letters
// this is, in the first of textLanguages. The code itself if it has no name; null for anything but
// two upper-case ASCII letters, and if memory runs out. Codes that ISO 3166 reserves for islands,
// such as TA for Tristan da Cunha, have names, too.
[[nodiscard]] TovStringRef createCountryName(std::string_view code);

}  // namespace pinorama
