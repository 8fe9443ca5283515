// Everything that the program writes: standard output, the KML document, complaints, and how far it
// has come.

#pragma once

#include "cli/batch_work.h"
#include "cli/kml_export.h"
#include "cli/progress.h"

#include <string>
#include <string_view>

namespace pinorama {

class Outputs {
public:
    Outputs(const Options& options, bool showsProgress);

    // Writes what stands before the first file. False when nothing can be written.
    bool begin();

    // Writes what has come of the next files.
    void write(const BatchResult& result);

    void complain(std::string_view what);
    void complainAboutFolder(const std::string& path, const std::string& why);

    // Makes the document whole with what is in it so far.
    void finish();

    // True when there is nothing left that could be written.
    bool areLost() const;
    // True when something could not be written. Standard output that nobody reads any more is no
    // reason to complain.
    bool haveFailed() const { return printError_ != 0 || kmlHasFailed_; }
    bool readerHasGone() const;

    const WorkCounts& counts() const { return counts_; }

    // The line on the terminal.
    void updateProgress() { progress_.update(counts_); }

private:
    void print(std::string_view text);
    void printComplaints(std::string_view lines);
    void loseKml();

    const Output output_;
    const std::string kmlPath_;
    KmlCollection kml_{};
    bool kmlHasFailed_ = false;
    bool isFirst_ = true;  // nothing has been printed
    int printError_ = 0;   // an errno
    WorkCounts counts_{};
    ProgressLine progress_;
};

}  // namespace pinorama
