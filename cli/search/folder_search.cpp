#include "cli/search/folder_search.h"

#include "base/descriptor.h"
#include "cli/batch_run.h"
#include "cli/diagnostic.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <utility>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

namespace pinorama {
namespace {
constexpr char kStart = 's';
constexpr char kFolder = 'f';
constexpr std::int64_t kNanoseconds = 1'000'000'000;
// A file that changes twice between two ticks of the clock keeps its time. What was changed just
// now is therefore not remembered.
constexpr std::int64_t kSettling = 2 * kNanoseconds;

struct FolderCloser {
    void operator()(DIR* folder) const { closedir(folder); }
};
using FolderHolder = std::unique_ptr<DIR, FolderCloser>;

bool isFolder(const std::string& path)
{
    struct stat status;
    return stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

FolderHolder openFolder(const std::string& path, bool isStart)
{
    const int flags = O_RDONLY | O_DIRECTORY | (isStart ? 0 : O_NOFOLLOW);
    DescriptorHolder descriptor(openDescriptor(path.c_str(), flags));
    FolderHolder folder(descriptor ? fdopendir(descriptor.get()) : nullptr);
    if (folder) (void)descriptor.take();
    return folder;
}

std::string absolutePathOf(const std::string& path)
{
    const std::unique_ptr<char, decltype(&std::free)> absolute(realpath(path.c_str(), nullptr),
                                                               std::free);
    return absolute ? absolute.get() : std::string();
}

std::int64_t nanosecondsOf(const timespec& time)
{
    return time.tv_sec * kNanoseconds + time.tv_nsec;
}

std::int64_t now()
{
    timespec time{};
    (void)clock_gettime(CLOCK_REALTIME, &time);
    return nanosecondsOf(time);
}

std::string withSlash(const std::string& path)
{
    return path.ends_with('/') ? path : path + '/';
}
}  // namespace

std::string startItem(const std::string& path)
{
    return kStart + path;
}

std::string folderItem(const std::string& path)
{
    return kFolder + path;
}

FolderSearch::FolderSearch(ReportOptions options, std::shared_ptr<const SearchFilter> filter,
                           std::string indexPath)
    : filter_(std::move(filter)),
      indexPath_(std::move(indexPath)),
      work_(std::move(options), [this](FileReport* report) {
          // Reports come in the order in which the pictures were given.
          if (nextRead_ < reading_.size()) {
              Item* item = reading_[nextRead_++];
              item->isStored = report->error.empty();
              item->position = report->position;
          }
          return (*filter_)(report);
      })
{
}

BatchResult FolderSearch::process(std::span<const std::string> items)
{
    BatchResult result;
    for (const std::string& item : items) {
        const std::string path = item.substr(1);
        const bool isStart = item.front() == kStart;
        if (isStart && !isFolder(path)) {
            result.add(work_.process(std::span(&path, 1)));
        } else {
            searchFolder(path, isStart, &result);
        }
    }
    return result;
}

void FolderSearch::searchFolder(const std::string& path, bool isStart, BatchResult* result)
{
    std::vector<Item> items;
    if (!list(path, isStart, &items, result)) {
        appendDiagnostic(shownPath(path) + ": " + std::strerror(errno), &result->diagnostics);
        result->failed++;
        return;
    }
    std::sort(items.begin(), items.end(),
              [](const Item& a, const Item& b) { return a.name < b.name; });
    const std::string folder = absolutePathOf(path);
    const bool isChanged = lookUp(folder, &items);
    read(path, &items, result);
    if (!isChanged || folder.empty() || indexPath_.empty()) return;
    FolderBlockWriter writer;
    const std::int64_t settled = now() - kSettling;
    for (const Item& item : items) {
        const bool isKept = item.isStored && item.modified < settled;
        if (isKept) writer.add({item.name, item.size, item.modified, item.position});
    }
    result->changes.emplace_back(folder, writer.take());
}

// Lists the pictures of a folder, and adds its subfolders to the result. On failure returns false
// with errno set.
bool FolderSearch::list(const std::string& path, bool isStart, std::vector<Item>* items,
                        BatchResult* result)
{
    const FolderHolder folder = openFolder(path, isStart);
    if (!folder) return false;
    const std::string prefix = withSlash(path);
    errno = 0;
    while (const dirent* entry = readdir(folder.get())) {
        const std::string_view name = entry->d_name;
        const bool isAccepted = accepted_.accepts(name);
        struct stat status {};
        bool isDirectory = entry->d_type == DT_DIR;
        if (entry->d_type == DT_UNKNOWN) {
            isDirectory =
                fstatat(dirfd(folder.get()), entry->d_name, &status, AT_SYMLINK_NOFOLLOW) == 0 &&
                S_ISDIR(status.st_mode);
        }
        if (isDirectory) {
            const bool isOther = name != "." && name != "..";
            if (isOther) result->subfolders.push_back(folderItem(prefix + entry->d_name));
        } else if (isAccepted) {
            const bool isThere = fstatat(dirfd(folder.get()), entry->d_name, &status, 0) == 0;
            // A dangling link is reported when its target is read.
            if (!isThere || S_ISREG(status.st_mode)) {
                items->push_back({entry->d_name, static_cast<std::uint64_t>(status.st_size),
                                  nanosecondsOf(status.st_mtim)});
            }
        }
        errno = 0;
    }
    return errno == 0;
}

// Fills in what the index knows of pictures that have not changed, and marks all that have to be
// read. True if the folder has changed.
bool FolderSearch::lookUp(const std::string& folder, std::vector<Item>* items)
{
    if (!index_) index_ = std::make_unique<PictureIndex>(indexPath_);
    const std::string block = index_->read(folder);
    FolderBlockReader reader(block);
    std::optional<IndexedPicture> known = reader.next();
    bool isChanged = false;
    for (Item& item : *items) {
        while (known && known->name < item.name) {
            isChanged = true;  // it is gone
            known = reader.next();
        }
        const bool isKnown = known && known->name == item.name && known->size == item.size &&
                             known->modified == item.modified;
        if (isKnown) {
            item.position = known->position;
            item.isStored = true;
            item.isWanted = filter_->matches(item.position);
        } else {
            item.isWanted = true;
            isChanged = true;
        }
    }
    return isChanged || reader.next().has_value();
}

void FolderSearch::read(const std::string& path, std::vector<Item>* items, BatchResult* result)
{
    const std::string prefix = withSlash(path);
    const std::size_t atOnce = filesAtOnce();
    std::vector<std::string> paths;
    const auto readPaths = [&] {
        nextRead_ = 0;
        result->add(work_.process(paths));
        reading_.clear();
        paths.clear();
    };
    for (Item& item : *items) {
        if (!item.isWanted) {
            result->files++;
            if (item.position) result->located++;
            continue;
        }
        reading_.push_back(&item);
        paths.push_back(prefix + item.name);
        if (paths.size() == atOnce) readPaths();
    }
    if (!paths.empty()) readPaths();
}

}  // namespace pinorama
