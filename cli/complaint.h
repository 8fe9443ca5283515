// What the program has to complain about on standard error.

#pragma once

#include <string>
#include <string_view>

namespace pinorama {

// Appends a line: the program's name and what is wrong, fit for a terminal.
void appendComplaint(std::string_view what, std::string* out);

// A path in the raw bytes of the system as valid UTF-8; what is none shows as U+FFFD.
std::string shownPath(const std::string& path);

}  // namespace pinorama
