// What stands for a character in a text of XML: "&amp;", "&#233;", "&#xe9;".

#pragma once

#include <string>
#include <string_view>

namespace pinorama {

// Appends `raw`, a text or the value of an attribute, with its references resolved, in UTF-8.
// Returns false for one that is malformed or of an entity that XML itself does not have.
// Source: Extensible Markup Language 1.0, 4.1 and 4.6.
bool appendXmlText(std::string_view raw, std::string& out);

}  // namespace pinorama
