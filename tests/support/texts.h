// Texts for tests, made from UTF-8 literals and compared with them.

#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "lib/objects/object_holder.h"
#include "lib/objects/string.h"

namespace test {

using Text = ObjectHolder<TovStringRef>;

// A new immutable text from UTF-8.
Text text(std::string_view utf8);

// A new mutable text from UTF-8.
Text mutableText(std::string_view utf8);

// The content as UTF-8 (U+FFFD for lone surrogates); nothing for null, which distinguishes a null
// result from an empty text.
std::optional<std::string> utf8(const TovString* string);

// The same for a result that the test owns; the text is released.
std::optional<std::string> takeUTF8(TovStringRef string);

}  // namespace test
