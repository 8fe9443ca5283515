// One file's report as a line of JSON (RFC 8259): an object with always the same keys in the same
// order. Numbers are written so that they read back exactly; NaN and infinity, which JSON does not
// have, become null.

#pragma once

#include <string>

#include "cli/file_report.h"

namespace pinorama {

// Appends the object and a line feed.
void appendJsonLine(const FileReport& report, std::string* out);

}  // namespace pinorama
