// Makes texts from files safe to print on a terminal.

#pragma once

#include <string>
#include <string_view>

namespace pinorama {

// Appends valid UTF-8 so that it stays on its line and never controls the terminal: line breaks and
// tabs become blanks, other control characters U+FFFD.
void appendPrintable(std::string_view text, std::string* out);

}  // namespace pinorama
