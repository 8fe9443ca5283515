// Reports as comma-separated values (RFC 4180): first where and when a picture was taken, with
// signed degrees and times in ISO 8601, then its texts and its file. Lines end in CR LF. What a
// picture does not have is an empty field; numbers read back exactly.
//
// People open this in spreadsheets and print it on terminals, so texts are made harmless: one that
// begins as a formula does gets an apostrophe in front, and characters that control a display
// become U+FFFD. JSON has the texts as they are.

#pragma once

#include "cli/file_report.h"

#include <string>

namespace pinorama {

// The columns beside those that every table has.
struct CsvColumns {
    bool isRaw = false;        // the fields of the record and the texts of the window
    bool hasNearness = false;  // distance and bearing from the place of a search
};

// Appends the first row, which has the names of the columns.
void appendCsvHeader(CsvColumns columns, std::string* out);

// Appends the row of one report.
void appendCsvLine(const FileReport& report, CsvColumns columns, std::string* out);

}  // namespace pinorama
