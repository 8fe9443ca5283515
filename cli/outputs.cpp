#include "cli/outputs.h"

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
    while (!text.empty()) {
        const ssize_t written = ::write(STDOUT_FILENO, text.data(), text.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) {
            printError_ = errno;
            if (!readerHasGone()) {
                complain(std::string("standard output: ") + std::strerror(printError_));
            }
            return;
        }
        text.remove_prefix(static_cast<std::size_t>(written));
    }
}

void Outputs::printComplaints(std::string_view lines)
{
    progress_.clear();
    // Nobody is left to tell when this fails.
    (void)!::write(STDERR_FILENO, lines.data(), lines.size());
}

void Outputs::loseKml()
{
    const int error = errno;
    kmlHasFailed_ = true;
    complain(shownPath(kmlPath_) + ": " + std::strerror(error));
}

}  // namespace pinorama
