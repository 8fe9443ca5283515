// Turns files into what is printed of them, a batch at a time. The results of batches, one behind
// the other, are the whole output.

#pragma once

#include "cli/file_reporter.h"

#include <cstdint>
#include <span>
#include <string>

namespace pinorama {

struct BatchResult {
    std::string output{};      // for standard output
    std::string placemarks{};  // for the KML document
    std::string complaints{};  // for standard error
    std::uint64_t files = 0;
    std::uint64_t located = 0;  // with a usable position
    std::uint64_t failed = 0;   // could not be read

    // Puts what follows behind this.
    void add(BatchResult following);
};

class BatchWork {
public:
    explicit BatchWork(ReportWishes wishes);

    // As the functions of FileReporter.
    void expect(std::span<const std::string> paths) { reporter_.expect(paths); }
    void warmUp() { reporter_.warmUp(); }

    // Reads the files; the arguments are as of FileReporter::report.
    BatchResult process(std::span<const std::string> paths, int alarm = -1);

private:
    void appendOutput(const FileReport& report, std::string* out) const;

    Output output_;
    FileReporter reporter_;
};

// What stands at the beginning of the output, before the first batch.
std::string beginningOfOutput(Output output);

// The text of a file begins with an empty line, which keeps it apart from the one before: nothing
// is before the first.
constexpr char kSeparator = '\n';

}  // namespace pinorama
