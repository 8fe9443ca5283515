// The progress of a run over many files: one line on the terminal that is updated in place, and a
// summary at the end.
//
//     ProgressLine progress(true);
//     for (const BatchResult& result : results) {
//         counts.files += result.files;
//         progress.update(counts);
//     }

#pragma once

#include "cli/batch_work.h"

#include <chrono>
#include <cstdint>
#include <string>

namespace pinorama {

struct WorkCounts {
    std::uint64_t files = 0;
    std::uint64_t located = 0;
    std::uint64_t failed = 0;  // files and folders
};

// Writes to standard error, and only if that is a terminal.
class ProgressLine {
public:
    explicit ProgressLine(bool isWanted);
    ~ProgressLine() { clear(); }

    // Writes the line if the last one is old enough.
    void update(const WorkCounts& counts);

    // Removes the line, so that something else can be written.
    void clear();

private:
    using Clock = std::chrono::steady_clock;

    const bool isWanted_;
    const Clock::time_point start_ = Clock::now();
    Clock::time_point next_;
    bool isThere_ = false;
};

// "12 pictures, 5600 per second". There is no total: only a second walk over all folders could
// know it.
std::string progressText(std::uint64_t files, double seconds);

// "340 pictures, 120 with a position, 1 not read, 0.1 seconds".
std::string summaryText(const WorkCounts& counts, double seconds);

}  // namespace pinorama
