#include "cli/batch_work.h"

#include "base/printable.h"
#include "cli/csv_line.h"
#include "cli/diagnostic.h"
#include "cli/json_line.h"
#include "cli/text_block.h"

#include <utility>

#include <sys/stat.h>

namespace pinorama {
namespace {
bool isFolder(const FileReport& report)
{
    struct stat status;
    return !report.size && report.error.empty() && stat(report.path.c_str(), &status) == 0 &&
           S_ISDIR(status.st_mode);
}
}  // namespace

void BatchResult::add(BatchResult following)
{
    if (files == 0) {
        *this = std::move(following);
        return;
    }
    output += following.output;
    placemarks += following.placemarks;
    diagnostics += following.diagnostics;
    files += following.files;
    located += following.located;
    failed += following.failed;
}

BatchWork::BatchWork(ReportOptions options)
    : output_(options.output), isRaw_(options.isRaw), reporter_(std::move(options))
{
}

BatchResult BatchWork::process(std::span<const std::string> paths, int alarm)
{
    BatchResult result;
    for (const FileReport& report : reporter_.report(paths, alarm)) {
        appendOutput(report, &result.output);
        result.placemarks += report.placemark;
        if (!report.error.empty()) {
            appendDiagnostic(report.path + ": " + report.error, &result.diagnostics);
            result.failed++;
        }
        // Whoever names a folder most likely wants the pictures in it.
        if (output_ == Output::text && isFolder(report)) {
            appendDiagnostic(report.path + ": is a folder; -r reads the pictures in it",
                             &result.diagnostics);
        }
        if (report.isLocated()) result.located++;
        result.files++;
    }
    return result;
}

void BatchWork::appendOutput(const FileReport& report, std::string* out) const
{
    switch (output_) {
    case Output::json: appendJsonLine(report, out); break;
    case Output::csv: appendCsvLine(report, isRaw_, out); break;
    case Output::text:
        if (!report.error.empty()) break;
        *out += kSeparator;
        appendTextBlock(report, out);
        break;
    case Output::webAddress:
    case Output::catalogueAddress:
        if (report.address.empty()) break;
        appendPrintable(report.address, out);  // the template is data that anybody may edit
        *out += '\n';
        break;
    case Output::script:
        if (!report.address.empty()) *out += report.address + '\n';
        break;
    case Output::nothing: break;
    }
}

std::string beginningOfOutput(const Options& options)
{
    std::string beginning;
    if (options.output == Output::csv) appendCsvHeader(options.isRaw, &beginning);
    return beginning;
}

}  // namespace pinorama
