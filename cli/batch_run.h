// The whole run of pinorama-info over the files of its command line: reads them, prints the
// reports, writes the KML document and returns the exit status.
//
//     Options options;
//     std::string error;
//     if (!readOptions(argc, argv, &options, &error)) return kWrongUsage;
//     return reportOnFiles(options, {});

#pragma once

#include "cli/file_reporter.h"
#include "cli/folder_walk.h"
#include "cli/options.h"
#include "cli/outputs.h"
#include "cli/path_list.h"
#include "cli/place_filter.h"
#include "cli/stop_signals.h"
#include "cli/thumbnailer.h"
#include "lib/strings/string_holder.h"
#include "reader/sandboxed_properties.h"

#include <functional>
#include <optional>

namespace pinorama {

constexpr int kSuccess = 0;
constexpr int kSomeFileFailed = 1;
constexpr int kWrongUsage = 2;
constexpr int kStoppedBySignal = 128;  // plus its number

// Writes the reports on all files, in their order, and the KML document. A few files are read one
// after the other; folders and many files on all processors.
//
//   filter           of a search; empty for none.
//   thumbnailer      for a document with thumbnails; empty for none.
//   serviceTemplate  the address of the web service that the options name; null for other outputs.
//
// Returns the exit status.
int reportOnFiles(const Options& options, StringHolder serviceTemplate, PlaceFilter filter = {},
                  Thumbnailer thumbnailer = {});

// The parts of that, for a run that goes through the files in another way.

// What happens between the beginning and the end of the outputs.
using ReportWork = std::function<void(StopSignals& signals, Outputs& outputs)>;

// Begins and ends the outputs around `work`, and returns the exit status.
int reportBy(const Options& options, const ReportWork& work);

// The readers of a run over many pictures: each has a layout of its addresses of its own, the one
// that takes the place of another, too. So no picture can learn or try out where the memory is that
// another worker, or a later reader, meets its pictures with.
ReaderLauncher readersForMany();

ReportOptions reportOptionsOf(const Options& options, StringHolder serviceTemplate,
                              Thumbnailer thumbnailer = {});

// The files of the command line, then those of the list, which is opened when it comes to them. The
// arguments are borrowed.
//
//   alarm  ends the waiting for a list when it becomes readable.
FolderWalk::StartSource startsOf(const Options& options, std::optional<PathList>* list, int alarm);

// How many files a process may have open at the same time, besides a few others.
std::size_t filesAtOnce();

}  // namespace pinorama
