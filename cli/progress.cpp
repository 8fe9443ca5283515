#include "cli/progress.h"

#include "base/descriptor.h"

#include <charconv>

#include <unistd.h>

namespace pinorama {
namespace {
constexpr std::chrono::milliseconds kInterval{200};
constexpr char kClearLine[] = "\r\x1b[K";

void writeToTerminal(const std::string& text)
{
    (void)writeAll(STDERR_FILENO, text);  // nothing depends on what a terminal shows
}

std::string fixed(double value, int digits)
{
    char text[64];
    const auto [end, error] =
        std::to_chars(text, text + sizeof text, value, std::chars_format::fixed, digits);
    return error == std::errc() ? std::string(text, end) : "?";
}

std::string countOf(std::uint64_t number, const char* one, const char* many)
{
    return std::to_string(number) + ' ' + (number == 1 ? one : many);
}
}  // namespace

ProgressLine::ProgressLine(bool isWanted)
    : isWanted_(isWanted && isatty(STDERR_FILENO) == 1), next_(start_ + kInterval)
{
}

void ProgressLine::update(const WorkCounts& counts)
{
    const Clock::time_point now = Clock::now();
    if (!isWanted_ || now < next_) return;
    next_ = now + kInterval;
    const double seconds = std::chrono::duration<double>(now - start_).count();
    writeToTerminal(kClearLine + progressText(counts.files, seconds));
    isThere_ = true;
}

void ProgressLine::clear()
{
    if (isThere_) writeToTerminal(kClearLine);
    isThere_ = false;
}

std::string progressText(std::uint64_t files, double seconds)
{
    std::string text = countOf(files, "picture", "pictures");
    if (files == 0 || seconds <= 0.0) return text;
    const double rate = static_cast<double>(files) / seconds;
    return text + ", " + fixed(rate, rate < 10.0 ? 1 : 0) + " per second";
}

std::string summaryText(const WorkCounts& counts, double seconds)
{
    return countOf(counts.files, "picture", "pictures") + ", " + std::to_string(counts.located) +
           " with a position, " + std::to_string(counts.failed) + " not read, " +
           fixed(seconds, 1) + " seconds";
}

}  // namespace pinorama
