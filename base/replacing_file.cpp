#include "base/replacing_file.h"

#include "base/item_path.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <string>

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

namespace pinorama {
namespace {
constexpr std::size_t kPendingBytes = 65536;
constexpr int kMostNames = 100;  // unfinished files of earlier programs in the same place

constexpr std::size_t kLongestName = 255;  // bytes

// A path beside `target`, whose name is cut where the two would not fit together, between two
// letters.
std::string unfinishedPathOf(const std::string& target, int number)
{
    const std::string suffix = '.' + std::to_string(number) + ".new";
    const std::string_view name = nameOf(target);
    std::size_t length = std::min(name.size(), kLongestName - suffix.size());
    const auto isInsideLetter = [&] { return (name[length] & 0xC0) == 0x80; };
    while (length > 0 && length < name.size() && isInsideLetter()) length--;
    return target.substr(0, target.size() - name.size() + length) + suffix;
}

bool isLink(const std::string& path)
{
    struct stat facts = {};
    return lstat(path.c_str(), &facts) == 0 && S_ISLNK(facts.st_mode);
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
    target_ = pathBehindLinks(path);
    if (target_.empty()) return false;
    if (target_.ends_with('/')) {
        errno = EISDIR;
        return false;
    }
    struct stat status = {};
    const bool exists = stat(target_.c_str(), &status) == 0;
    if (!exists && errno != ENOENT) return false;
    if (exists && (!S_ISREG(status.st_mode) || isLink(target_))) {
        file_ = DescriptorHolder(openDescriptor(target_.c_str(), O_WRONLY | O_APPEND));
        return static_cast<bool>(file_);
    }
    // A file that may not be written is not replaced either.
    if (exists && faccessat(AT_FDCWD, target_.c_str(), W_OK, AT_EACCESS) != 0) return false;

    for (int number = 0; number < kMostNames; number++) {
        const std::string name = unfinishedPathOf(target_, getpid() + number);
        file_ =
            DescriptorHolder(openDescriptor(name.c_str(), O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW));
        if (file_) {
            unfinished_ = name;
            if (exists) (void)fchmod(file_.get(), status.st_mode & 07777);
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
    if (!flushDescriptor(file_.get()) || std::rename(unfinished_.c_str(), target_.c_str()) != 0) {
        return abandon();
    }
    unfinished_.clear();
    return true;
}

bool ReplacingFile::flush()
{
    if (!file_) {
        errno = EBADF;
        return false;
    }
    if (!writeAll(pending_)) return abandon();
    pending_.clear();
    return true;
}

// Writes everything. False with errno set.
bool ReplacingFile::writeAll(std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t written = ::write(file_.get(), bytes.data(), bytes.size());
        if (written >= 0) {
            bytes.remove_prefix(static_cast<std::size_t>(written));
        } else if (errno == EAGAIN && fullPipe_ == FullPipe::waits) {
            pollfd pipe = {.fd = file_.get(), .events = POLLOUT, .revents = 0};
            (void)poll(&pipe, 1, -1);
        } else if (errno != EINTR) {
            return false;
        }
    }
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
