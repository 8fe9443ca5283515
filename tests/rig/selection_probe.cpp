// Queries the real selection source five times a second, as the window does, and prints a line for
// every change:
//
//     paths PATH...    each with percent escapes, "-" for an empty list
//
// It reads commands from standard input. "stats" prints a line with the number of queries since the
// last such line, the median and the maximum of their durations in microseconds, the processor
// time per second of wall-clock time in microseconds, and whether the last answer was known (1) or
// not (0). "stop" and "go" pause and resume the queries; "quit" and the end of the input end the
// program.

#include "base/file_uri.h"
#include "selection/accessibility_selection.h"
#include "selection/extension_selection.h"
#include "selection/file_manager_selection.h"

#include <QCoreApplication>
#include <QSocketNotifier>
#include <QTimer>

#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

using namespace pinorama;

namespace {
using Microseconds = std::chrono::microseconds;
using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds kInterval(200);

long cpuTime()
{
    rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    return (usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) * 1000000L + usage.ru_utime.tv_usec +
           usage.ru_stime.tv_usec;
}

class Probe {
public:
    explicit Probe(SelectionSource& source) : source_(source)
    {
        QObject::connect(&timer_, &QTimer::timeout, [this] { query(); });
        timer_.start(kInterval);
    }

    void obey(const std::string& command)
    {
        if (command == "stop") timer_.stop();
        if (command == "go") timer_.start(kInterval);
        if (command == "stats") printStats();
        if (command == "quit") QCoreApplication::quit();
    }

private:
    void query()
    {
        const auto start = Clock::now();
        const std::vector<std::string> paths = source_.selectedPaths();
        times_.push_back(std::chrono::duration_cast<Microseconds>(Clock::now() - start).count());
        if (isFirst_ || paths != paths_) {
            std::string line = "paths";
            for (const std::string& path : paths) line += " " + fileURIOfPath(path).substr(7);
            if (paths.empty()) line += " -";
            std::puts(line.c_str());
            std::fflush(stdout);
        }
        paths_ = paths;
        isFirst_ = false;
    }

    void printStats()
    {
        const auto seconds = std::chrono::duration<double>(Clock::now() - since_).count();
        const long used = cpuTime() - usedBefore_;
        std::sort(times_.begin(), times_.end());
        const long median = times_.empty() ? 0 : times_[times_.size() / 2];
        const long longest = times_.empty() ? 0 : times_.back();
        std::printf("stats %zu %ld %ld %ld %d\n", times_.size(), median, longest,
                    static_cast<long>(static_cast<double>(used) / seconds),
                    source_.isKnown() ? 1 : 0);
        std::fflush(stdout);
        times_.clear();
        since_ = Clock::now();
        usedBefore_ = cpuTime();
    }

    SelectionSource& source_;
    QTimer timer_;
    bool isFirst_ = true;
    std::vector<std::string> paths_;
    std::vector<long> times_;
    Clock::time_point since_ = Clock::now();
    long usedBefore_ = cpuTime();
};
}  // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QString choice = QCoreApplication::arguments().value(1);
    FrameTracker tracker;
    std::unique_ptr<SelectionSource> source;
    if (choice == QLatin1String("--extension")) {
        source = std::make_unique<ExtensionSelection>(tracker);
    } else if (choice == QLatin1String("--accessibility")) {
        source = std::make_unique<AccessibilitySelection>(tracker);
    } else {
        source = std::make_unique<FileManagerSelection>();
    }
    Probe probe(*source);
    QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    std::string pending;
    QObject::connect(&input, &QSocketNotifier::activated, [&] {
        char bytes[256];
        const ssize_t count = read(STDIN_FILENO, bytes, sizeof bytes);
        if (count <= 0) return QCoreApplication::quit();
        pending.append(bytes, static_cast<std::size_t>(count));
        for (std::size_t end; (end = pending.find('\n')) != std::string::npos;) {
            probe.obey(pending.substr(0, end));
            pending.erase(0, end + 1);
        }
    });
    return QCoreApplication::exec();
}
