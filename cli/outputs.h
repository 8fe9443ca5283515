// Everything that a run writes: standard output, the KML document, diagnostics and progress. It
// keeps them apart on a terminal and remembers what could not be written.
//
//     Outputs outputs(options, true);
//     if (!outputs.begin()) return kSomeFileFailed;
//     for (const BatchResult& result : results) outputs.write(result);
//     outputs.finish();
//     return outputs.haveFailed() ? kSomeFileFailed : kSuccess;

#pragma once

#include "cli/batch_work.h"
#include "cli/kml_export.h"
#include "cli/kmz_document.h"
#include "cli/progress.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pinorama {

class Outputs {
public:
    // The options are borrowed.
    Outputs(const Options& options, bool showsProgress);

    // Writes what comes before the first file. False if nothing can be written.
    bool begin();

    // Writes the result of the next files.
    void write(const BatchResult& result);

    void printDiagnostic(std::string_view what);
    // Reports something that cannot be read, and counts it as failed.
    void reportFailure(std::string_view what);
    // The same for a folder.
    void reportFolder(const std::string& path, const std::string& why);

    // Completes the documents with what it contains so far.
    void finish();

    // True if nothing that follows could be written anywhere.
    bool areLost() const;
    // True if something could not be written. A closed pipe counts, but is not reported.
    bool haveFailed() const { return printError_ != 0 || kmlHasFailed_; }
    // True if whoever read standard output has closed it.
    bool readerHasGone() const;

    const WorkCounts& counts() const { return counts_; }

    // Updates the progress on the terminal.
    void updateProgress() { progress_.update(counts_); }

private:
    void print(std::string_view text);
    void checkPrinted(bool isPrinted);
    void printDiagnostics(std::string_view lines);
    void failKml();

    const Options& options_;
    const Output output_;
    const std::string kmlPath_;
    KmlCollection kml_{};
    std::optional<KmzDocument> kmz_{};  // what is printed goes into it; nothing for other outputs
    bool kmlHasFailed_ = false;
    bool isFirst_ = true;  // nothing has been printed
    int printError_ = 0;   // an errno
    std::vector<TrackPoint> track_{};
    std::vector<Hit> hits_{};
    WorkCounts counts_{};
    ProgressLine progress_;
};

}  // namespace pinorama
