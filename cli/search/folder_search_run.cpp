#include "cli/search/folder_search.h"

#include "cli/batch_run.h"
#include "cli/diagnostic.h"
#include "cli/outputs.h"
#include "cli/path_list.h"
#include "cli/search/picture_thumbnails.h"
#include "cli/stop_signals.h"
#include "cli/worker_pool.h"

#include <algorithm>
#include <cstdio>
#include <deque>
#include <iterator>
#include <memory>
#include <utility>

namespace pinorama {
namespace {
constexpr int kTick = 100;                       // milliseconds between two updates of the progress
constexpr std::size_t kMaxItemsAtOnce = 16;      // folders in one request
constexpr std::size_t kMaxUnwritten = 32 << 20;  // bytes of blocks, before they are written

// Writes what the workers have found out, now and then and at the end.
class IndexWriter {
public:
    explicit IndexWriter(std::string path) : path_(std::move(path)) {}
    ~IndexWriter() { flush(); }
    IndexWriter(const IndexWriter&) = delete;
    IndexWriter& operator=(const IndexWriter&) = delete;

    void add(std::vector<PictureIndex::Change> changes)
    {
        for (PictureIndex::Change& change : changes) {
            size_ += change.second.size();
            changes_.push_back(std::move(change));
        }
        if (size_ > kMaxUnwritten) flush();
    }

private:
    void flush()
    {
        // Without the index the next search is slow, and nothing else.
        if (!changes_.empty()) (void)PictureIndex::write(path_, changes_);
        changes_.clear();
        size_ = 0;
    }

    std::string path_;
    std::vector<PictureIndex::Change> changes_{};
    std::size_t size_ = 0;
};

// The next items for a worker: few while there are few, so that all workers have some.
std::vector<std::string> takeItems(std::deque<std::string>* queue, std::size_t workers)
{
    const std::size_t share = queue->size() / (4 * workers);
    const std::size_t count =
        std::min(queue->size(), std::clamp<std::size_t>(share, 1, kMaxItemsAtOnce));
    const auto end = queue->begin() + static_cast<std::ptrdiff_t>(count);
    std::vector<std::string> items(std::make_move_iterator(queue->begin()),
                                   std::make_move_iterator(end));
    queue->erase(queue->begin(), end);
    return items;
}
}  // namespace

int searchPictures(const Options& options, StringHolder serviceTemplate)
{
    Thumbnailer thumbnailer;
    if (options.output == Output::kmz) {
        thumbnailer = [thumbnails = std::make_shared<PictureThumbnails>()](
                          const std::string& path) { return thumbnails->make(path); };
    }
    if (!options.isSearch()) {
        return reportOnFiles(options, std::move(serviceTemplate), {}, std::move(thumbnailer));
    }
    std::string error;
    auto made = SearchFilter::make(options, &error);
    if (!made) {
        std::string line;
        appendDiagnostic(error, &line);
        std::fputs(line.c_str(), stderr);
        return kWrongUsage;
    }
    const auto filter = std::make_shared<const SearchFilter>(*std::move(made));
    if (!options.recursive || options.watch) {
        return reportOnFiles(
            options, std::move(serviceTemplate),
            [filter](FileReport* report) { return (*filter)(report); }, std::move(thumbnailer));
    }
    // A sidecar can change without its picture, so what it says is not remembered.
    const bool hasIndex = !options.noIndex && !options.readsMore;
    const std::string indexPath = !hasIndex                    ? std::string()
                                  : !options.indexPath.empty() ? options.indexPath
                                                               : defaultIndexPath();
    FolderSearch search(
        reportOptionsOf(options, std::move(serviceTemplate), std::move(thumbnailer)), filter,
        indexPath);
    return reportBy(options, [&](StopSignals& signals, Outputs& outputs) {
        search.warmUp();
        const int workerCount = usableProcessors();
        WorkerPool workers(workerCount, [&search](std::span<const std::string> items) {
            return search.process(items);
        });
        IndexWriter index(indexPath);
        std::optional<PathList> list;
        const FolderWalk::StartSource starts = startsOf(options, &list, signals.descriptor());
        std::deque<std::string> queue;
        bool hasStarts = true;
        while (signals.caught() == 0 && !outputs.areLost()) {
            while (hasStarts && queue.size() < kMaxItemsAtOnce) {
                const auto start = starts();
                hasStarts = start.has_value();
                if (hasStarts) queue.push_back(startItem(*start));
            }
            while (!queue.empty() && workers.hasRoom()) {
                workers.add(takeItems(&queue, static_cast<std::size_t>(workerCount)));
            }
            if (workers.isEmpty()) break;
            workers.wait(signals.descriptor(), kTick);
            while (auto result = workers.take()) {
                queue.insert(queue.end(), std::make_move_iterator(result->subfolders.begin()),
                             std::make_move_iterator(result->subfolders.end()));
                index.add(std::move(result->changes));
                outputs.write(*result);
            }
            outputs.updateProgress();
        }
        if (list && !list->error().empty()) outputs.reportFailure(list->error());
    });
}

}  // namespace pinorama
