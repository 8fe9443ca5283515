// One file's report as lines for people: a caption and a value each.

#pragma once

#include <string>

#include "cli/file_report.h"

namespace pinorama {

// Appends a line for every field that the window shows; a value never takes more than its line.
void appendTextBlock(const FileReport& report, std::string* out);

}  // namespace pinorama
