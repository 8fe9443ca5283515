// The texts about places, in the table "Places" of the main bundle, and what is put into them. All
// throw std::bad_alloc if memory runs out; their callers guard it (base/memory_guard.h).

#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "lib/objects/string.h"

namespace pinorama {

// A text that takes the place of its name between braces.
struct Filling {
    std::u16string_view name;
    std::u16string text;
};

// The text of a key, which stands for itself if no language has it.
std::u16string tableText(std::string_view key);

// Returns a new text: that of a key with every filling in its place.
[[nodiscard]] TovStringRef fill(std::string_view key, std::initializer_list<Filling> fillings);

// The units of a new text, which is released.
std::u16string take(TovStringRef text);

std::u16string unitsOfUTF8(std::string_view bytes);

constexpr const char* kPlacesTable = "Places";

}  // namespace pinorama
