#include "cli/progress.h"

#include <algorithm>
#include <charconv>
#include <csignal>

#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace pinorama {
namespace {
constexpr std::chrono::milliseconds kInterval{200};
constexpr char kClearLine[] = "\r\x1b[K";

void writeToTerminal(const std::string& text)
{
    // Nothing depends on what a terminal shows.
    (void)!write(STDERR_FILENO, text.data(), text.size());
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

// "0:04", "1:02:03".
std::string clockText(std::uint64_t seconds)
{
    const auto twoDigits = [](std::uint64_t value) {
        return (value < 10 ? ":0" : ":") + std::to_string(value);
    };
    const std::uint64_t minutes = seconds / 60;
    if (minutes < 60) return std::to_string(minutes) + twoDigits(seconds % 60);
    return std::to_string(minutes / 60) + twoDigits(minutes % 60) + twoDigits(seconds % 60);
}
}  // namespace

FileCount::~FileCount()
{
    if (process_ <= 0) return;
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
}

void FileCount::start(const std::function<std::uint64_t()>& count)
{
    int ends[2];
    if (pipe(ends) != 0) return;
    pipe_ = DescriptorHolder(ends[0]);
    const DescriptorHolder theirs(ends[1]);
    const pid_t parent = getpid();
    process_ = fork();
    if (process_ != 0) return;

    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != parent) _exit(1);
    const std::uint64_t number = count();
    const bool isTold = write(theirs.get(), &number, sizeof number) == sizeof number;
    _exit(isTold ? 0 : 1);
}

std::optional<std::uint64_t> FileCount::number()
{
    pollfd ready{pipe_.get(), POLLIN, 0};
    if (number_ || !pipe_ || poll(&ready, 1, 0) != 1) return number_;
    std::uint64_t number = 0;
    if (read(pipe_.get(), &number, sizeof number) == sizeof number) number_ = number;
    pipe_ = DescriptorHolder();
    return number_;
}

ProgressLine::ProgressLine(bool isWanted)
    : isWanted_(isWanted && isatty(STDERR_FILENO) == 1), next_(start_ + kInterval)
{
}

void ProgressLine::update(const WorkCounts& counts, FileCount* total)
{
    const Clock::time_point now = Clock::now();
    if (!isWanted_ || now < next_) return;
    next_ = now + kInterval;
    const double seconds = std::chrono::duration<double>(now - start_).count();
    writeToTerminal(kClearLine + progressText(counts.files, total->number(), seconds));
    isThere_ = true;
}

void ProgressLine::clear()
{
    if (isThere_) writeToTerminal(kClearLine);
    isThere_ = false;
}

std::string progressText(std::uint64_t files, std::optional<std::uint64_t> total, double seconds)
{
    std::string text = std::to_string(files);
    if (total) text += " of " + std::to_string(*total);
    text += files == 1 && !total ? " picture" : " pictures";
    if (files == 0 || seconds <= 0.0) return text;
    const double rate = static_cast<double>(files) / seconds;
    text += ", " + fixed(rate, rate < 10.0 ? 1 : 0) + " per second";
    if (total) {
        const std::uint64_t left = *total - std::min(*total, files);
        text += ", " + clockText(static_cast<std::uint64_t>(static_cast<double>(left) / rate)) +
                " left";
    }
    return text;
}

std::string summaryText(const WorkCounts& counts, double seconds)
{
    return countOf(counts.files, "picture", "pictures") + ", " + std::to_string(counts.located) +
           " with a position, " + std::to_string(counts.failed) + " not read, " +
           fixed(seconds, 1) + " seconds";
}

}  // namespace pinorama
