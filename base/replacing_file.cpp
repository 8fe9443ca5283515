#include "base/replacing_file.h"

#include "base/folder_listing.h"
#include "base/item_path.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <string>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace pinorama {
namespace {
constexpr std::size_t kPendingBytes = 65536;
constexpr int kMaxNames = 100;  // unfinished files of earlier programs in the same place
constexpr std::size_t kMaxNameLength = 255;  // bytes
constexpr mode_t kAllPermissions = 07777;
constexpr time_t kAbandonedAfter = 600;  // seconds
constexpr std::string_view kUnfinished = ".new";

// A path beside `target`. If its name and the suffix together are too long, the name is cut between
// two letters.
std::string pathBeside(const std::string& target, const std::string& suffix)
{
    const std::string_view name = nameOf(target);
    std::size_t length = std::min(name.size(), kMaxNameLength - suffix.size());
    const auto isInsideLetter = [&] { return (name[length] & 0xC0) == 0x80; };
    while (length > 0 && length < name.size() && isInsideLetter()) length--;
    return target.substr(0, target.size() - name.size() + length) + suffix;
}

bool isDigits(std::string_view text)
{
    return !text.empty() && text.size() <= 10 &&
           text.find_first_not_of("0123456789") == std::string_view::npos;
}

// True for a file that nobody has written to for kAbandonedAfter, and that is no link. Its process
// may run on another machine that shares the folder, so that none is there says too little.
bool isAbandoned(const std::string& path)
{
    struct stat facts = {};
    return lstat(path.c_str(), &facts) == 0 && S_ISREG(facts.st_mode) &&
           facts.st_uid == geteuid() && time(nullptr) - facts.st_mtime > kAbandonedAfter;
}

// Removes the unfinished files of `target` that killed programs left.
void removeAbandoned(const std::string& target)
{
    // A name that had to be cut for its suffix is too rare to look for.
    const std::string_view stem = nameOf(target);
    const std::string folder = target.substr(0, target.size() - stem.size());
    for (const std::string& name : namesInFolder(folder.empty() ? "." : folder)) {
        std::string_view rest = name;
        if (!rest.starts_with(stem) || !rest.ends_with(kUnfinished)) continue;
        rest.remove_prefix(stem.size());
        if (rest.size() <= kUnfinished.size() || rest[0] != '.') continue;
        rest = rest.substr(1, rest.size() - 1 - kUnfinished.size());
        if (!isDigits(rest)) continue;
        const auto process =
            static_cast<pid_t>(std::strtoll(std::string(rest).c_str(), nullptr, 10));
        const bool isAlive = process <= 0 || kill(process, 0) == 0 || errno != ESRCH;
        if (!isAlive && isAbandoned(folder + name)) unlink((folder + name).c_str());
    }
}

bool isLink(const std::string& path)
{
    struct stat facts = {};
    return lstat(path.c_str(), &facts) == 0 && S_ISLNK(facts.st_mode);
}

// Makes the new name of a file last. A file system that cannot do it has done what it can.
void flushFolder(const std::string& path)
{
    const DescriptorHolder folder(openDescriptor(path.c_str(), O_RDONLY | O_DIRECTORY));
    if (folder) (void)flushDescriptor(folder.get());
}
}  // namespace

ReplacingFile::~ReplacingFile()
{
    (void)abandon();
}

bool ReplacingFile::begin(const std::string& path)
{
    if (path.empty()) {
        errno = ENOENT;
        return false;
    }
    target_ = options_.ownMode ? path : pathBehindLinks(path);
    if (target_.empty()) return false;
    if (target_.ends_with('/')) {
        errno = EISDIR;
        return false;
    }
    if (options_.ownMode) return beginUnfinished(*options_.ownMode);

    struct stat status = {};
    if (stat(target_.c_str(), &status) != 0) return errno == ENOENT && beginShared();
    if (!S_ISREG(status.st_mode) || isLink(target_)) return beginDirectly();
    // A file that may not be written is not replaced either.
    if (faccessat(AT_FDCWD, target_.c_str(), W_OK, AT_EACCESS) != 0) return false;
    if (!beginShared()) return false;
    (void)fchmod(file_.get(), status.st_mode & kAllPermissions);
    return true;
}

// Begins a file in a folder of the user's, where what is left of others would be in the way.
bool ReplacingFile::beginShared()
{
    removeAbandoned(target_);
    return beginUnfinished(0666);
}

bool ReplacingFile::beginDirectly()
{
    file_ = DescriptorHolder(openDescriptor(target_.c_str(), O_WRONLY | O_APPEND));
    return static_cast<bool>(file_);
}

bool ReplacingFile::beginUnfinished(mode_t mode)
{
    const int names = options_.takesTurns ? 1 : kMaxNames;
    for (int number = 0; number < names; number++) {
        const std::string name = pathBeside(
            target_,
            options_.takesTurns ? ".new" : '.' + std::to_string(getpid() + number) + ".new");
        // What a killed program left may be a pipe or a link by now, so it is not written to.
        if (options_.takesTurns) unlink(name.c_str());
        file_ = DescriptorHolder(
            openDescriptor(name.c_str(), O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW, mode));
        if (file_) {
            unfinished_ = name;
            return true;
        }
        if (errno != EEXIST) return false;
    }
    return false;
}

bool ReplacingFile::contentIs(std::string_view bytes) const
{
    if (unfinished_.empty()) return false;
    std::string content(bytes.size() + 1, '\0');
    const std::int64_t count = readAt(file_.get(), 0, content.data(), content.size());
    return count == static_cast<std::int64_t>(bytes.size()) && content.starts_with(bytes);
}

bool ReplacingFile::write(std::string_view bytes)
{
    pending_ += bytes;
    return pending_.size() < kPendingBytes || flush();
}

bool ReplacingFile::finish()
{
    if (!flush()) return false;
    if (unfinished_.empty()) return true;
    if (!makeDurable() || std::rename(unfinished_.c_str(), target_.c_str()) != 0) return abandon();
    unfinished_.clear();
    if (options_.durability == Durability::contentAndName) flushFolder(folderOf(target_));
    return true;
}

// Closes the file, as far as its durability asks after its content has reached the disk.
bool ReplacingFile::makeDurable()
{
    const bool isFlushed = options_.durability == Durability::none || flushDescriptor(file_.get());
    // Some file systems report only now that there was no room.
    return isFlushed && (close(file_.take()) == 0 || errno == EINTR);
}

bool ReplacingFile::flush()
{
    if (!file_) {
        errno = EBADF;
        return false;
    }
    if (!writeAll(file_.get(), pending_, options_.fullPipe)) return abandon();
    pending_.clear();
    return true;
}

// Always false, errno as before.
bool ReplacingFile::abandon()
{
    const int error = errno;
    if (!unfinished_.empty()) unlink(unfinished_.c_str());
    unfinished_.clear();
    file_ = DescriptorHolder();
    errno = error;
    return false;
}

}  // namespace pinorama
