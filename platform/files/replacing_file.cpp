#include "platform/files/replacing_file.h"

#include "platform/files/item_path.h"

#include <cerrno>
#include <cstdio>
#include <string>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {
constexpr std::size_t kPendingBytes = 65536;
constexpr int kMostNames = 100;  // unfinished files of earlier programs in the same place

// Writes everything. False with errno set.
bool writeAll(int descriptor, std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}
}  // namespace

platform::ReplacingFile::~ReplacingFile()
{
    (void)abandon();
}

bool platform::ReplacingFile::begin(const std::string& path)
{
    if (path.empty()) {
        errno = ENOENT;
        return false;
    }
    const std::string existing = resolvedPath(path.c_str());
    target_ = existing.empty() ? path : existing;
    struct stat status;
    const bool exists = stat(target_.c_str(), &status) == 0;
    if (exists && !S_ISREG(status.st_mode)) {
        file_ = DescriptorHolder(openDescriptor(target_.c_str(), O_WRONLY));
        return static_cast<bool>(file_);
    }
    // A file that may not be written is not replaced either.
    if (exists && access(target_.c_str(), W_OK) != 0) return false;

    for (int number = 0; number < kMostNames; number++) {
        const std::string name = target_ + '.' + std::to_string(getpid() + number) + ".new";
        file_ = DescriptorHolder(
            openDescriptor(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW));
        if (file_) {
            unfinished_ = name;
            if (exists) (void)fchmod(file_.get(), status.st_mode & 07777);
            return true;
        }
        if (errno != EEXIST) return false;
    }
    return false;
}

bool platform::ReplacingFile::write(std::string_view bytes)
{
    pending_ += bytes;
    return pending_.size() < kPendingBytes || flush();
}

bool platform::ReplacingFile::finish()
{
    if (!flush()) return false;
    if (unfinished_.empty()) return true;
    if (!flushDescriptor(file_.get()) || std::rename(unfinished_.c_str(), target_.c_str()) != 0) {
        return abandon();
    }
    unfinished_.clear();
    return true;
}

bool platform::ReplacingFile::flush()
{
    if (!file_) {
        errno = EBADF;
        return false;
    }
    if (!writeAll(file_.get(), pending_)) return abandon();
    pending_.clear();
    return true;
}

// Always false, errno as before.
bool platform::ReplacingFile::abandon()
{
    const int error = errno;
    if (!unfinished_.empty()) unlink(unfinished_.c_str());
    unfinished_.clear();
    file_ = DescriptorHolder();
    errno = error;
    return false;
}
