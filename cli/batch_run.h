// The whole run of pinorama-info over the files of its command line: reads them, prints the
// reports, writes the KML document and returns the exit status.
//
//     Options options;
//     std::string error;
//     if (!readOptions(argc, argv, &options, &error)) return kWrongUsage;
//     return reportOnFiles(options, {});

#pragma once

#include "cli/options.h"
#include "cli/place_filter.h"
#include "lib/strings/string_holder.h"

namespace pinorama {

constexpr int kSuccess = 0;
constexpr int kSomeFileFailed = 1;
constexpr int kWrongUsage = 2;
constexpr int kStoppedBySignal = 128;  // plus its number

// Writes the reports on all files, in their order, and the KML document. A few files are read one
// after the other; folders and many files on all processors.
//
//   filter           of a search; empty for none.
//   serviceTemplate  the address of the web service that the options name; null for other outputs.
//
// Returns the exit status.
int reportOnFiles(const Options& options, StringHolder serviceTemplate, PlaceFilter filter = {});

}  // namespace pinorama
