// How far the work on many files has come: a line on the terminal while it goes on, and a summary.

#pragma once

#include "base/descriptor.h"
#include "cli/batch_work.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include <sys/types.h>

namespace pinorama {

struct WorkCounts {
    std::uint64_t files = 0;
    std::uint64_t located = 0;
    std::uint64_t failed = 0;  // files and folders
};

// Finds out how many files there will be, in a process of its own, while the work goes on.
class FileCount {
public:
    FileCount() = default;
    ~FileCount();
    FileCount(const FileCount&) = delete;
    FileCount& operator=(const FileCount&) = delete;

    // Starts to count; `count` runs in the other process.
    void start(const std::function<std::uint64_t()>& count);

    // The number, once it is known.
    std::optional<std::uint64_t> number();

private:
    pid_t process_ = -1;
    DescriptorHolder pipe_;
    std::optional<std::uint64_t> number_;
};

// The line on standard error; it is there only when that is a terminal.
class ProgressLine {
public:
    explicit ProgressLine(bool isWanted);
    ~ProgressLine() { clear(); }

    bool isShown() const { return isWanted_; }

    // Shows the line anew when it is time to.
    void update(const WorkCounts& counts, FileCount* total);

    // Takes the line away, so that something else can be written.
    void clear();

private:
    using Clock = std::chrono::steady_clock;

    const bool isWanted_;
    const Clock::time_point start_ = Clock::now();
    Clock::time_point next_;
    bool isThere_ = false;
};

// "12 of 340 pictures, 5600 per second, 0:04 left"; without a total "12 pictures, 5600 per second".
std::string progressText(std::uint64_t files, std::optional<std::uint64_t> total, double seconds);

// "340 pictures, 120 with a position, 1 not read, 0.1 seconds".
std::string summaryText(const WorkCounts& counts, double seconds);

}  // namespace pinorama
