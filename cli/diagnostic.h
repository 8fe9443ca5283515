// Error messages and other diagnostics for standard error.

#pragma once

#include <string>
#include <string_view>

namespace pinorama {

// Appends a line: the name of the program and `what`, which may be any bytes, as appendPrintable
// has it.
void appendDiagnostic(std::string_view what, std::string* out);

// A path in the bytes of the system as valid UTF-8, with U+FFFD for malformed bytes.
std::string shownPath(const std::string& path);

}  // namespace pinorama
