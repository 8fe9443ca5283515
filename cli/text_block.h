// A report as lines of a caption and a value, for people.

#pragma once

#include <string>

#include "cli/file_report.h"

namespace pinorama {

// Appends one line for each field that the window shows.
void appendTextBlock(const FileReport& report, std::string* out);

}  // namespace pinorama
