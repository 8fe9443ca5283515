// Reports as comma-separated values (RFC 4180): the fields of the JSON object as columns, lines
// that end in CR LF. What is null in JSON is an empty field; numbers read back exactly.
//
// People open this in spreadsheets and print it on terminals, so texts are made harmless: one that
// begins as a formula does gets an apostrophe in front, and characters that control a display
// become U+FFFD. JSON has the texts as they are.

#pragma once

#include "cli/file_report.h"

#include <string>

namespace pinorama {

// Appends the first row, which has the names of the columns.
void appendCsvHeader(std::string* out);

// Appends the row of one report.
void appendCsvLine(const FileReport& report, std::string* out);

}  // namespace pinorama
