#include "cli/outputs.h"

#include "base/descriptor.h"
#include "cli/complaint.h"

#include <cerrno>
#include <cstring>

#include <unistd.h>

namespace pinorama {

Outputs::Outputs(const Options& options, bool showsProgress)
    : output_(options.output), kmlPath_(options.kmlPath), progress_(showsProgress)
{
}

bool Outputs::begin()
{
    if (!kmlPath_.empty() && !kml_.begin(kmlPath_)) {
        loseKml();
        return false;
    }
    print(beginningOfOutput(output_));
    return !areLost();
}

void Outputs::write(const BatchResult& result)
{
    print(result.output);
    if (!kmlPath_.empty() && !kmlHasFailed_ && !kml_.add(result.placemarks)) loseKml();
    if (!result.complaints.empty()) printComplaints(result.complaints);
    counts_.files += result.files;
    counts_.located += result.located;
    counts_.failed += result.failed;
}

void Outputs::complain(std::string_view what)
{
    std::string line;
    appendComplaint(what, &line);
    printComplaints(line);
}

void Outputs::complainAboutFolder(const std::string& path, const std::string& why)
{
    complain(shownPath(path) + ": " + why);
    counts_.failed++;
}

void Outputs::finish()
{
    if (!kmlPath_.empty() && !kmlHasFailed_ && !kml_.finish()) loseKml();
    progress_.clear();
}

bool Outputs::areLost() const
{
    return printError_ != 0 || (output_ == Output::nothing && kmlHasFailed_);
}

bool Outputs::readerHasGone() const
{
    return printError_ == EPIPE;
}

void Outputs::print(std::string_view text)
{
    if (isFirst_ && output_ == Output::text && text.starts_with(kSeparator)) {
        text.remove_prefix(1);
        isFirst_ = false;
    }
    if (text.empty() || printError_ != 0) return;
    progress_.clear();
    if (writeAll(STDOUT_FILENO, text)) return;
    printError_ = errno;
    if (!readerHasGone()) complain(std::string("standard output: ") + std::strerror(printError_));
}

void Outputs::printComplaints(std::string_view lines)
{
    progress_.clear();
    (void)writeAll(STDERR_FILENO, lines);  // nobody is left to report a failure to
}

void Outputs::loseKml()
{
    const int error = errno;
    kmlHasFailed_ = true;
    complain(shownPath(kmlPath_) + ": " + std::strerror(error));
}

}  // namespace pinorama
