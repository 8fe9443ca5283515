#include "cli/batch_work.h"

#include "cli/complaint.h"
#include "cli/csv_line.h"
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
    complaints += following.complaints;
    files += following.files;
    located += following.located;
    failed += following.failed;
}

BatchWork::BatchWork(ReportWishes wishes) : output_(wishes.output), reporter_(std::move(wishes)) {}

BatchResult BatchWork::process(std::span<const std::string> paths, int alarm)
{
    BatchResult result;
    for (const FileReport& report : reporter_.report(paths, alarm)) {
        appendOutput(report, &result.output);
        result.placemarks += report.placemark;
        if (!report.error.empty()) {
            appendComplaint(report.path + ": " + report.error, &result.complaints);
            result.failed++;
        }
        // Who named a folder most likely wants to know of the pictures in it.
        if (output_ == Output::text && isFolder(report)) {
            appendComplaint(report.path + ": is a folder; -r reads the pictures in it",
                            &result.complaints);
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
    case Output::csv: appendCsvLine(report, out); break;
    case Output::text:
        if (!report.error.empty()) break;
        *out += kSeparator;
        appendTextBlock(report, out);
        break;
    case Output::webAddress:
    case Output::catalogueAddress:
    case Output::script:
        if (!report.address.empty()) *out += report.address + '\n';
        break;
    case Output::nothing: break;
    }
}

std::string beginningOfOutput(Output output)
{
    std::string beginning;
    if (output == Output::csv) appendCsvHeader(&beginning);
    return beginning;
}

}  // namespace pinorama
