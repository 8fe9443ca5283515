// Texts inside documents in XML.

#pragma once

#include "lib/objects/string.h"

#include <string>
#include <string_view>

// Returns a new text: `text` as the content of an element (XML 1.0, sections 2.2 and 2.4). Markup
// becomes entities; tabs and line breaks, which readers would change, become numbers; what a
// document cannot hold at all, control characters and lone surrogates among them, becomes U+FFFD.
// Null when memory runs out.
[[nodiscard]] TovStringRef gpsEscapeForXML(std::u16string_view text);

namespace pinorama {

// Appends a text in valid UTF-8 in the same way, as the content of an element or the value of an
// attribute. What would control a terminal is written as a number, so that it keeps its value.
void appendXmlText(std::string_view text, std::string* out);

}  // namespace pinorama
