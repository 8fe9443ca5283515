#include "cli/outputs.h"

#include "base/descriptor.h"
#include "cli/diagnostic.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

#include <unistd.h>

namespace pinorama {
namespace {
// The order of a walk: the contents of a folder stand at the place of its name.
bool comesBefore(const std::string& a, const std::string& b)
{
    const auto rank = [](char c) { return c == '/' ? 0 : static_cast<unsigned char>(c) + 1; };
    return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(),
                                        [rank](char x, char y) { return rank(x) < rank(y); });
}
}  // namespace

Outputs::Outputs(const Options& options, bool showsProgress)
    : options_(options),
      output_(options.output),
      kmlPath_(options.kmlPath),
      progress_(showsProgress)
{
}

bool Outputs::begin()
{
    if (!kmlPath_.empty() && !kml_.begin(kmlPath_)) {
        failKml();
        return false;
    }
    if (output_ == Output::kmz) {
        kmz_.emplace([](std::string_view bytes) { return writeAll(STDOUT_FILENO, bytes); });
    }
    print(beginningOfOutput(options_));
    return !areLost();
}

void Outputs::write(const BatchResult& result)
{
    print(result.output);
    if (!kmlPath_.empty() && !kmlHasFailed_ && !kml_.add(result.placemarks)) failKml();
    if (!result.diagnostics.empty()) printDiagnostics(result.diagnostics);
    hits_.insert(hits_.end(), result.hits.begin(), result.hits.end());
    track_.insert(track_.end(), result.track.begin(), result.track.end());
    counts_.files += result.files;
    counts_.located += result.located;
    counts_.failed += result.failed;
}

void Outputs::printDiagnostic(std::string_view what)
{
    std::string line;
    appendDiagnostic(what, &line);
    printDiagnostics(line);
}

void Outputs::reportFailure(std::string_view what)
{
    printDiagnostic(what);
    counts_.failed++;
}

void Outputs::reportFolder(const std::string& path, const std::string& why)
{
    reportFailure(shownPath(path) + ": " + why);
}

void Outputs::finish()
{
    std::sort(hits_.begin(), hits_.end(), [](const Hit& a, const Hit& b) {
        return a.metres != b.metres ? a.metres < b.metres : comesBefore(a.path, b.path);
    });
    for (const Hit& hit : hits_) print(hit.text);
    isFirst_ = false;
    print(endOfOutput(options_, std::move(track_)));
    if (kmz_ && printError_ == 0) checkPrinted(kmz_->finish());
    if (!kmlPath_.empty() && !kmlHasFailed_ && !kml_.finish()) failKml();
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
    const std::string_view separator = separatorOf(output_);
    if (isFirst_ && !separator.empty() && text.starts_with(separator)) {
        text.remove_prefix(separator.size());
        isFirst_ = false;
    }
    if (text.empty() || printError_ != 0) return;
    progress_.clear();
    checkPrinted(kmz_ ? kmz_->write(text) : writeAll(STDOUT_FILENO, text));
}

void Outputs::checkPrinted(bool isPrinted)
{
    if (isPrinted) return;
    printError_ = errno;
    if (!readerHasGone())
        printDiagnostic(std::string("standard output: ") + std::strerror(printError_));
}

void Outputs::printDiagnostics(std::string_view lines)
{
    progress_.clear();
    (void)writeAll(STDERR_FILENO, lines);  // nobody is left to report a failure to
}

void Outputs::failKml()
{
    const int error = errno;
    kmlHasFailed_ = true;
    printDiagnostic(shownPath(kmlPath_) + ": " + std::strerror(error));
}

}  // namespace pinorama
