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
      work_(
          std::move(options),
          [this](FileReport* report) {
              // Reports come in the order in which the pictures were given.
              if (nextRead_ < reading_.size()) {
                  Item* item = reading_[nextRead_++];
                  // A position that is not on the Earth is none, but counts as one.
                  const bool isElsewhere = report->isLocated() && !report->position;
                  item->isStored = report->error.empty() && !isElsewhere;
                  item->position = report->position;
              }
              return (*filter_)(report);
          },
          readersForMany())
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
    if (!index_) index_ = std::make_unique<PictureIndex>(indexPath_);
    const std::string folder = absolutePathOf(path);
    const std::string block = index_->read(folder);
    KnownPictures known(block);
    if (!list(path, isStart, &known, result)) {
        appendDiagnostic(shownPath(path) + ": " + std::strerror(errno), &result->diagnostics);
        result->failed++;
        return;
    }
    const bool isChanged = listing_.isChanged || known.hasMore();
    read(path, result);
    if (!isChanged || folder.empty() || indexPath_.empty()) return;
    FolderBlockWriter writer;
    const std::int64_t settled = now() - kSettling;
    for (const Item& item : listing_.items) {
        const bool isKept = item.isStored && item.modified < settled;
        if (isKept) writer.add({item.name, item.size, item.modified, item.position});
    }
    // A folder with pictures that are not remembered seems to have changed every time.
    std::string newBlock = writer.take();
    if (newBlock != block) result->changes.emplace_back(folder, std::move(newBlock));
}

// Lists the pictures of a folder, and adds its subfolders to the result. On failure returns false
// with errno set.
bool FolderSearch::list(const std::string& path, bool isStart, KnownPictures* known,
                        BatchResult* result)
{
    listing_.items.clear();  // keeps its room for the next folder
    listing_.newNames.clear();
    listing_.isChanged = false;
    const FolderHolder folder = openFolder(path, isStart);
    if (!folder) return false;
    const int descriptor = dirfd(folder.get());
    errno = 0;
    while (const dirent* entry = readdir(folder.get())) {
        const char* name = entry->d_name;
        struct stat status {};
        bool isDirectory = entry->d_type == DT_DIR;
        if (entry->d_type == DT_UNKNOWN) {
            isDirectory = fstatat(descriptor, name, &status, AT_SYMLINK_NOFOLLOW) == 0 &&
                          S_ISDIR(status.st_mode);
        }
        if (isDirectory) {
            const bool isOther = std::strcmp(name, ".") != 0 && std::strcmp(name, "..") != 0;
            if (isOther) result->subfolders.push_back(folderItem(withSlash(path) + name));
        } else if (accepted_.accepts(name)) {
            status = {};
            const bool isThere = fstatat(descriptor, name, &status, 0) == 0;
            // A dangling link is reported when its target is read.
            if (!isThere || S_ISREG(status.st_mode)) add(name, status, known);
        }
        errno = 0;
    }
    return errno == 0;
}

// Adds a picture with what the index knows of it, if it has not changed.
void FolderSearch::add(const char* name, const struct stat& status, KnownPictures* known)
{
    Item& item = listing_.items.emplace_back();
    item.size = static_cast<std::uint64_t>(status.st_size);
    item.modified = nanosecondsOf(status.st_mtim);
    const std::optional<IndexedPicture> picture = known->take(name);
    if (picture) {
        item.name = picture->name;
    } else {
        item.name = listing_.newNames.emplace_back(name);
    }
    item.isStored = picture && picture->size == item.size && picture->modified == item.modified;
    if (item.isStored) {
        item.position = picture->position;
        item.isWanted = filter_->matches(item.position);
    } else {
        item.isWanted = true;
        listing_.isChanged = true;
    }
}

// Reads the pictures that are wanted, in the order of the bytes of their names.
void FolderSearch::read(const std::string& path, BatchResult* result)
{
    std::vector<Item*> wanted;
    for (Item& item : listing_.items) {
        if (item.isWanted) {
            wanted.push_back(&item);
        } else {
            result->files++;
            if (item.position) result->located++;
        }
    }
    std::sort(wanted.begin(), wanted.end(),
              [](const Item* a, const Item* b) { return a->name < b->name; });
    const std::string prefix = withSlash(path);
    const std::size_t atOnce = filesAtOnce();
    std::vector<std::string> paths;
    for (std::size_t first = 0; first < wanted.size(); first += atOnce) {
        const std::size_t end = std::min(wanted.size(), first + atOnce);
        paths.clear();
        reading_.assign(wanted.begin() + static_cast<std::ptrdiff_t>(first),
                        wanted.begin() + static_cast<std::ptrdiff_t>(end));
        for (const Item* item : reading_) paths.push_back(prefix + std::string(item->name));
        nextRead_ = 0;
        result->add(work_.process(paths));
    }
    reading_.clear();
}

}  // namespace pinorama
