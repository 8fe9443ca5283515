#include "cli/batch_run.h"

#include "cli/batch_work.h"
#include "cli/folder_walk.h"
#include "cli/folder_watch.h"
#include "cli/outputs.h"
#include "cli/path_list.h"
#include "cli/stop_signals.h"
#include "cli/worker_pool.h"
#include "location/picture_source.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <utility>

#include <sys/resource.h>

namespace pinorama {
namespace {
constexpr std::size_t kMaxFilesInTurn = kMaxDescriptors;
constexpr int kTick = 100;  // milliseconds between two updates of the progress, at most

std::vector<std::string> nextBatch(FolderWalk* walk, std::size_t maxCount)
{
    std::vector<std::string> paths;
    while (paths.size() < maxCount) {
        std::optional<std::string> path = walk->next();
        if (!path) break;
        paths.push_back(*std::move(path));
    }
    return paths;
}

// Prints each file as soon as it has been read. A signal also ends the wait for a slow disk.
void workInTurn(FolderWalk* walk, BatchWork* work, StopSignals* signals, Outputs* outputs)
{
    while (signals->caught() == 0 && !outputs->areLost()) {
        const std::vector<std::string> paths = nextBatch(walk, 1);
        if (paths.empty()) return;
        const BatchResult result = work->process(paths, signals->descriptor());
        const bool isCutShort = result.failed > 0 && signals->caught() != 0;
        if (!isCutShort) outputs->write(result);
    }
}

void workInParallel(FolderWalk* walk, BatchWork* work, StopSignals* signals, Outputs* outputs)
{
    work->warmUp();
    WorkerPool workers(usableProcessors(),
                       [work](std::span<const std::string> paths) { return work->process(paths); });
    const std::size_t maxCount = filesAtOnce();
    bool isWalking = true;
    while (signals->caught() == 0 && !outputs->areLost()) {
        while (isWalking && workers.hasRoom()) {
            std::vector<std::string> paths = nextBatch(walk, maxCount);
            isWalking = !paths.empty();
            if (isWalking) workers.add(std::move(paths));
        }
        if (workers.isEmpty()) return;
        workers.wait(signals->descriptor(), kTick);
        while (const auto result = workers.take()) outputs->write(*result);
        outputs->updateProgress();
    }
}

bool isBatch(const Options& options)
{
    return options.watch || options.recursive || options.progress || !options.listPath.empty() ||
           options.files.size() > kMaxFilesInTurn;
}

// Whoever asks for the address of a picture gets one or an error.
bool missesAddress(const Options& options, const WorkCounts& counts)
{
    if (options.watch) return false;
    const bool isAddress = options.output == Output::webAddress ||
                           options.output == Output::catalogueAddress ||
                           options.output == Output::script;
    return isAddress && !options.recursive && counts.located == 0 && counts.failed == 0;
}

// Prints each picture that arrives in the folders.
int reportOnArrivals(const Options& options, ReportOptions reportOptions, PlaceFilter filter)
{
    BatchWork work(std::move(reportOptions), std::move(filter), readersForMany());
    work.warmUp();
    return reportBy(options, [&](StopSignals& signals, Outputs& outputs) {
        FolderWatch watch(options.recursive,
                          [&outputs](const std::string& path, const std::string& why) {
                              outputs.reportFolder(path, why);
                          });
        std::optional<PathList> list;
        const FolderWalk::StartSource starts = startsOf(options, &list, signals.descriptor());
        while (const auto start = starts()) watch.add(*start);
        while (signals.caught() == 0 && !outputs.areLost()) {
            const auto path = watch.next(signals.descriptor());
            if (!path) break;
            outputs.write(work.process(std::span(&*path, 1), signals.descriptor()));
            outputs.updateProgress();
        }
    });
}
}  // namespace

FolderWalk::StartSource startsOf(const Options& options, std::optional<PathList>* list, int alarm)
{
    return [&options, list, alarm, next = std::size_t{0}]() mutable -> std::optional<std::string> {
        if (next < options.files.size()) return options.files[next++];
        if (options.listPath.empty()) return std::nullopt;
        if (!*list) list->emplace(options.listPath, options.listEnd, alarm);
        return (*list)->next();
    };
}

std::size_t filesAtOnce()
{
    rlimit limit{};
    if (getrlimit(RLIMIT_NOFILE, &limit) != 0) return 1;
    // A picture is open together with its sidecar where those are read.
    return std::clamp<std::size_t>(limit.rlim_cur / (readsMoreKinds() ? 4 : 2), 1, kMaxDescriptors);
}

ReaderLauncher readersForMany()
{
    return [] { return startPropertyReader(readsMoreKinds()); };
}

ReportOptions reportOptionsOf(const Options& options, StringHolder serviceTemplate,
                              Thumbnailer thumbnailer)
{
    return {.output = options.output,
            .serviceTemplate = std::move(serviceTemplate),
            .placemarks = !options.kmlPath.empty(),
            .isRaw = options.isRaw,
            .hasTrack = options.hasTrack,
            .isSorted = options.isSorted(),
            .thumbnailer = std::move(thumbnailer)};
}

int reportBy(const Options& options, const ReportWork& work)
{
    const auto start = std::chrono::steady_clock::now();
    bool isBrokenPipe = false;
    int status = kSuccess;
    {
        StopSignals signals;
        Outputs outputs(options, isBatch(options) && !options.quiet);
        if (!outputs.begin()) return kSomeFileFailed;
        work(signals, outputs);
        outputs.finish();

        const WorkCounts& counts = outputs.counts();
        if (missesAddress(options, counts)) outputs.printDiagnostic("no position");
        if ((options.recursive || options.progress) && !options.quiet) {
            const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
            const char* stopped = signals.caught() != 0 ? "stopped: " : "";
            outputs.printDiagnostic(stopped + summaryText(counts, time.count()));
        }
        if (counts.failed > 0 || outputs.haveFailed() || missesAddress(options, counts)) {
            status = kSomeFileFailed;
        }
        if (signals.caught() != 0) status = kStoppedBySignal + signals.caught();
        isBrokenPipe = outputs.readerHasGone();
    }
    // A shell expects this end of a program whose pipe was closed. All outputs are complete by now.
    if (isBrokenPipe) raise(SIGPIPE);
    return status;
}

int reportOnFiles(const Options& options, StringHolder serviceTemplate, PlaceFilter filter,
                  Thumbnailer thumbnailer)
{
    ReportOptions reportOptions =
        reportOptionsOf(options, std::move(serviceTemplate), std::move(thumbnailer));
    if (options.watch)
        return reportOnArrivals(options, std::move(reportOptions), std::move(filter));
    BatchWork work(std::move(reportOptions), std::move(filter),
                   isBatch(options) ? readersForMany() : forkPropertyReader);
    if (!isBatch(options)) work.expect(options.files);
    return reportBy(options, [&](StopSignals& signals, Outputs& outputs) {
        std::optional<PathList> list;
        FolderWalk walk(startsOf(options, &list, signals.descriptor()), options.recursive,
                        [&outputs](const std::string& path, const std::string& why) {
                            outputs.reportFolder(path, why);
                        });
        (isBatch(options) ? workInParallel : workInTurn)(&walk, &work, &signals, &outputs);
        if (list && !list->error().empty()) outputs.reportFailure(list->error());
    });
}

}  // namespace pinorama
