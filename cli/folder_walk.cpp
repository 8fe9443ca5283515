#include "cli/folder_walk.h"

#include "base/descriptor.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <memory>
#include <utility>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

namespace pinorama {
namespace {
constexpr char kFolder = 'd';
constexpr char kFile = 'f';

struct FolderCloser {
    void operator()(DIR* folder) const { closedir(folder); }
};

bool isFolder(const std::string& path)
{
    struct stat status;
    return stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

// The type of an item if the listing does not contain it.
unsigned char typeOf(int folder, const char* name, int flags)
{
    struct stat status;
    if (fstatat(folder, name, &status, flags) != 0) return DT_UNKNOWN;
    return static_cast<unsigned char>(IFTODT(status.st_mode));
}
}  // namespace

FolderWalk::FolderWalk(StartSource starts, bool recursive, OnError onError)
    : starts_(std::move(starts)), recursive_(recursive), onError_(std::move(onError))
{
}

FolderWalk::FolderWalk(std::vector<std::string> starts, bool recursive, OnError onError)
    : FolderWalk(
          [starts = std::move(starts), next = std::size_t{0}]() mutable {
              return next < starts.size() ? std::optional(starts[next++]) : std::nullopt;
          },
          recursive, std::move(onError))
{
}

std::optional<std::string> FolderWalk::next()
{
    while (true) {
        if (levels_.empty()) {
            std::optional<std::string> start = starts_();
            if (!start) return std::nullopt;
            path_ = *std::move(start);
            if (!recursive_ || !isFolder(path_)) return path_;
            enter(true);
            continue;
        }
        Listing& level = levels_.back();
        if (level.next == level.names.size()) {
            levels_.pop_back();
            continue;
        }
        const char* item = level.block.c_str() + level.names[level.next++];
        path_.resize(level.pathLength);
        path_ += item + 1;
        if (*item == kFile) return path_;
        enter(false);
    }
}

// Enters the folder at path_. A start may be a link to a folder. Below a start, a folder that
// somebody has replaced by a link meanwhile is refused.
bool FolderWalk::enter(bool isStart)
{
    const int flags = O_RDONLY | O_DIRECTORY | (isStart ? 0 : O_NOFOLLOW);
    DescriptorHolder folder(openDescriptor(path_.c_str(), flags));
    Listing listing;
    if (!folder || !list(folder.take(), &listing)) {
        onError_(path_, std::strerror(errno));
        return false;
    }
    if (path_.back() != '/') path_ += '/';
    listing.pathLength = path_.size();
    levels_.push_back(std::move(listing));
    return true;
}

// Lists the folder and consumes its descriptor. On failure returns false with errno set.
bool FolderWalk::list(int descriptor, Listing* listing)
{
    const std::unique_ptr<DIR, FolderCloser> folder(fdopendir(descriptor));
    if (!folder) {
        const DescriptorHolder unused(descriptor);
        return false;
    }
    errno = 0;
    while (const dirent* entry = readdir(folder.get())) {
        addName(dirfd(folder.get()), entry->d_name, entry->d_type, listing);
        errno = 0;
    }
    if (errno != 0) return false;
    const char* block = listing->block.c_str();
    std::sort(listing->names.begin(), listing->names.end(),
              [block](std::uint32_t a, std::uint32_t b) {
                  return std::strcmp(block + a + 1, block + b + 1) < 0;
              });
    return true;
}

void FolderWalk::addName(int folder, const char* name, unsigned char type, Listing* listing)
{
    if (std::strcmp(name, ".") == 0 || std::strcmp(name, "..") == 0) return;
    if (type == DT_UNKNOWN) type = typeOf(folder, name, AT_SYMLINK_NOFOLLOW);
    if (type != DT_DIR) {
        if (!accepted_.accepts(name)) return;
        // A dangling link is reported when its target is read.
        const bool isLink = type == DT_LNK;
        if (isLink) type = typeOf(folder, name, 0);
        if (type != DT_REG && !(isLink && type == DT_UNKNOWN)) return;
    }
    listing->names.push_back(static_cast<std::uint32_t>(listing->block.size()));
    listing->block += type == DT_DIR ? kFolder : kFile;
    listing->block.append(name, std::strlen(name) + 1);
}

}  // namespace pinorama
