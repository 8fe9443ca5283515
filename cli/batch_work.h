// Turns a batch of files into the texts to print about them. The results of all batches, one after
// the other, are the whole output.

#pragma once

#include "cli/file_reporter.h"
#include "cli/gpx_document.h"
#include "cli/place_filter.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace pinorama {

// What is printed about a picture once it is known where it belongs.
struct Hit {
    double metres;       // from the place of the search; 0 without one
    std::string path{};  // as the report has it
    std::string text{};
};

struct BatchResult {
    std::string output{};       // for standard output
    std::string placemarks{};   // for the KML document
    std::string diagnostics{};  // for standard error
    std::vector<TrackPoint> track{};
    std::vector<Hit> hits{};  // instead of the output, if the search is sorted
    // Of a search through folders: what to go through as well, and the new blocks of the index.
    std::vector<std::string> subfolders{};
    std::vector<std::pair<std::string, std::string>> changes{};
    std::uint64_t items = 0;  // of the batch that are done
    std::uint64_t files = 0;
    std::uint64_t located = 0;  // with a usable position
    std::uint64_t failed = 0;   // could not be read

    // Appends the result of the files that follow.
    void add(BatchResult following);
};

class BatchWork {
public:
    // Only reports that pass the filter are printed; all are counted.
    explicit BatchWork(ReportOptions options, PlaceFilter filter = {},
                       ReaderLauncher launcher = forkPropertyReader);

    // See FileReporter.
    void expect(std::span<const std::string> paths) { reporter_.expect(paths); }
    void warmUp() { reporter_.warmUp(); }

    // Reads the files. The arguments are those of FileReporter::report.
    BatchResult process(std::span<const std::string> paths, int alarm = -1);

private:
    void addOutput(const FileReport& report, const std::string& path, BatchResult* result) const;
    void appendOutput(const FileReport& report, std::string_view path, std::string* out) const;
    void addKmzPieces(const FileReport& report, const std::string& path, std::string* kml,
                      std::string* thumbnails) const;

    Output output_;
    bool isRaw_;
    bool hasTrack_;
    bool isSorted_;
    PlaceFilter filter_;
    Thumbnailer thumbnailer_;
    FileReporter reporter_;
};

// The output before that of the first batch, and after that of the last one.
std::string beginningOfOutput(const Options& options);
std::string endOfOutput(const Options& options, std::vector<TrackPoint> track);

// What stands before the output of each file; Outputs drops the first one. An empty line between
// text blocks; empty where nothing separates them.
std::string_view separatorOf(Output output);

}  // namespace pinorama
