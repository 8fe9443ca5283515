#include "cli/batch_run.h"

#include "cli/batch_work.h"
#include "cli/folder_walk.h"
#include "cli/lane_pool.h"
#include "cli/outputs.h"
#include "cli/stop_signals.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <utility>

#include <sys/resource.h>

namespace pinorama {
namespace {
constexpr std::size_t kFewFiles = kMostDescriptors;
constexpr int kTick = 100;  // milliseconds between two looks at the progress

std::vector<std::string> nextBatch(FolderWalk* walk, std::size_t most)
{
    std::vector<std::string> paths;
    while (paths.size() < most) {
        std::optional<std::string> path = walk->next();
        if (!path) break;
        paths.push_back(*std::move(path));
    }
    return paths;
}

// The files of a batch are open at the same time, beside a few others.
std::size_t batchSize()
{
    rlimit limit{};
    if (getrlimit(RLIMIT_NOFILE, &limit) != 0) return 1;
    return std::clamp<std::size_t>(limit.rlim_cur / 2, 1, kMostDescriptors);
}

// Each file as soon as it is there. Who stops the program does not have to wait for a slow disk.
void workHere(FolderWalk* walk, BatchWork* work, StopSignals* signals, Outputs* outputs)
{
    while (signals->caught() == 0 && !outputs->areLost()) {
        const std::vector<std::string> paths = nextBatch(walk, 1);
        if (paths.empty()) return;
        const BatchResult result = work->process(paths, signals->descriptor());
        const bool isCutShort = result.failed > 0 && signals->caught() != 0;
        if (!isCutShort) outputs->write(result);
    }
}

void workInLanes(FolderWalk* walk, BatchWork* work, StopSignals* signals, Outputs* outputs)
{
    work->warmUp();
    LanePool lanes(usableProcessors(),
                   [work](std::span<const std::string> paths) { return work->process(paths); });
    const std::size_t most = batchSize();
    bool isWalking = true;
    while (signals->caught() == 0 && !outputs->areLost()) {
        while (isWalking && lanes.hasRoom()) {
            std::vector<std::string> paths = nextBatch(walk, most);
            isWalking = !paths.empty();
            if (isWalking) lanes.add(std::move(paths));
        }
        if (lanes.isEmpty()) return;
        lanes.wait(signals->descriptor(), kTick);
        while (const auto result = lanes.take()) outputs->write(*result);
        outputs->updateProgress();
    }
}

// Who asks for the address of a picture gets one or an error.
bool missesAddress(const Options& options, const WorkCounts& counts)
{
    const bool isAddress = options.output == Output::webAddress ||
                           options.output == Output::catalogueAddress ||
                           options.output == Output::script;
    return isAddress && !options.recursive && counts.located == 0 && counts.failed == 0;
}
}  // namespace

int reportOnFiles(const Options& options, StringHolder serviceTemplate)
{
    const auto start = std::chrono::steady_clock::now();
    BatchWork work({.output = options.output,
                    .serviceTemplate = std::move(serviceTemplate),
                    .placemarks = !options.kmlPath.empty()});
    const bool isMuch = options.recursive || options.files.size() > kFewFiles;
    if (!isMuch) work.expect(options.files);
    bool isBrokenPipe = false;
    int status = kSuccess;
    {
        StopSignals signals;
        Outputs outputs(options, isMuch && !options.quiet);
        if (!outputs.begin()) return kSomeFileFailed;
        FolderWalk walk(options.files, options.recursive,
                        [&outputs](const std::string& path, const std::string& why) {
                            outputs.complainAboutFolder(path, why);
                        });
        (isMuch ? workInLanes : workHere)(&walk, &work, &signals, &outputs);
        outputs.finish();

        const WorkCounts& counts = outputs.counts();
        if (missesAddress(options, counts)) outputs.complain("no position");
        if (options.recursive && !options.quiet) {
            const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
            const char* stopped = signals.caught() != 0 ? "stopped: " : "";
            outputs.complain(stopped + summaryText(counts, time.count()));
        }
        if (counts.failed > 0 || outputs.haveFailed() || missesAddress(options, counts)) {
            status = kSomeFileFailed;
        }
        if (signals.caught() != 0) status = kStoppedBySignal + signals.caught();
        isBrokenPipe = outputs.readerHasGone();
    }
    // Whoever started the program expects it to end like this, now that everything is in order.
    if (isBrokenPipe) raise(SIGPIPE);
    return status;
}

}  // namespace pinorama
