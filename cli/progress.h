// How far the work on many files has come: a line on the terminal while it goes on, and a summary.

#pragma once

#include <chrono>
#include <cstdint>
#include <string>

namespace pinorama {

struct WorkCounts {
    std::uint64_t files = 0;
    std::uint64_t located = 0;
    std::uint64_t failed = 0;  // files and folders
};

// The line on standard error; it is there only when that is a terminal.
class ProgressLine {
public:
    explicit ProgressLine(bool isWanted);
    ~ProgressLine() { clear(); }

    // Shows the line anew when it is time to.
    void update(const WorkCounts& counts);

    // Takes the line away, so that something else can be written.
    void clear();

private:
    using Clock = std::chrono::steady_clock;

    const bool isWanted_;
    const Clock::time_point start_ = Clock::now();
    Clock::time_point next_;
    bool isThere_ = false;
};

// "12 pictures, 5600 per second". How many there will be, nobody knows before the folders have been
// walked through.
std::string progressText(std::uint64_t files, double seconds);

// "340 pictures, 120 with a position, 1 not read, 0.1 seconds".
std::string summaryText(const WorkCounts& counts, double seconds);

}  // namespace pinorama
