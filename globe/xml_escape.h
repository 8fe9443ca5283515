// Texts inside documents in XML.

#pragma once

#include "lib/objects/string.h"

#include <string_view>

// Returns a new text: `text` as the content of an element (XML 1.0, sections 2.2 and 2.4). Markup
// becomes entities; tabs and line breaks, which readers would change, become numbers; what a
// document cannot hold at all, control characters and lone surrogates among them, becomes U+FFFD.
// Null when memory runs out.
[[nodiscard]] TovStringRef gpsEscapeForXML(std::u16string_view text);
