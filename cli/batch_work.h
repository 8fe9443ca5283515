// Turns a batch of files into the texts to print about them. The results of all batches, one after
// the other, are the whole output.

#pragma once

#include "cli/file_reporter.h"

#include <cstdint>
#include <span>
#include <string>

namespace pinorama {

struct BatchResult {
    std::string output{};       // for standard output
    std::string placemarks{};   // for the KML document
    std::string diagnostics{};  // for standard error
    std::uint64_t files = 0;
    std::uint64_t located = 0;  // with a usable position
    std::uint64_t failed = 0;   // could not be read

    // Appends the result of the files that follow.
    void add(BatchResult following);
};

class BatchWork {
public:
    explicit BatchWork(ReportOptions options);

    // See FileReporter.
    void expect(std::span<const std::string> paths) { reporter_.expect(paths); }
    void warmUp() { reporter_.warmUp(); }

    // Reads the files. The arguments are those of FileReporter::report.
    BatchResult process(std::span<const std::string> paths, int alarm = -1);

private:
    void appendOutput(const FileReport& report, std::string* out) const;

    Output output_;
    bool isRaw_;
    FileReporter reporter_;
};

// The output before that of the first batch.
std::string beginningOfOutput(const Options& options);

// An empty line before each text block. Outputs drops the first one.
constexpr char kSeparator = '\n';

}  // namespace pinorama
