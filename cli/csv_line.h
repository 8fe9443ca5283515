// Reports as a table of comma-separated values (RFC 4180): the fields of a JSON object as columns,
// a line break of two characters. A value that JSON calls null is an empty field; numbers read back
// exactly.

#pragma once

#include "cli/file_report.h"

#include <string>

namespace pinorama {

// Appends the row with the names of the columns, which comes first.
void appendCsvHeader(std::string* out);

// Appends the row of one report.
void appendCsvLine(const FileReport& report, std::string* out);

}  // namespace pinorama
