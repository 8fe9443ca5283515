// A report as one line of JSON (RFC 8259): an object that always has the same keys in the same
// order. Numbers are written so that they read back exactly; NaN and infinity, which JSON lacks,
// become null. Every text keeps its value: characters that control a display are escaped.

#pragma once

#include <string>

#include "cli/file_report.h"

namespace pinorama {

// Appends the object and a line feed.
void appendJsonLine(const FileReport& report, std::string* out);

}  // namespace pinorama
