#include "platform/files/descriptor.h"

#include "lib/base/status.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

namespace {
constexpr int kFirstOwnDescriptor = 3;

// Moves a descriptor that stands where a standard stream belongs to a higher number.
int aboveStandardStreams(int descriptor)
{
    if (descriptor < 0 || descriptor >= kFirstOwnDescriptor) return descriptor;
    const int moved = fcntl(descriptor, F_DUPFD_CLOEXEC, kFirstOwnDescriptor);
    const int error = errno;
    close(descriptor);
    errno = error;
    return moved;
}

// Calls step(done) until `count` bytes are done, nothing more is moved, or a step fails. A failure
// behind the first step is a short transfer: what was moved is told.
template <typename Step>
std::int64_t transfer(std::size_t count, Step step)
{
    std::size_t done = 0;
    while (done < count) {
        const ssize_t moved = step(done);
        if (moved < 0 && errno == EINTR) continue;
        if (moved < 0 && done == 0) return -1;
        if (moved <= 0) break;
        done += static_cast<std::size_t>(moved);
    }
    return static_cast<std::int64_t>(done);
}
}  // namespace

std::int32_t platform::statusOfErrno(int error)
{
    switch (error) {
    case 0: return kErrNone;
    case ENOENT: return kErrNotFound;
    case EEXIST: return kErrExists;
    case EACCES:
    case EPERM: return kErrNoPermission;
    case ENOSPC: return kErrDiskFull;
    case EROFS: return kErrWriteProtected;
    case EMFILE:
    case ENFILE: return kErrTooManyOpen;
    case EBADF: return kErrNotOpen;
    case EINVAL: return kErrBadArgument;
    case ENAMETOOLONG: return kErrBadName;
    case ENOTDIR: return kErrNotAFolder;
    case ENOTEMPTY:
    case EBUSY: return kErrBusy;
    case ENOMEM: return kErrNoMemory;
    default: return kErrInputOutput;
    }
}

int platform::openDescriptor(const char* path, int flags, mode_t mode)
{
    int descriptor = -1;
    do {
        descriptor = open(path, flags | O_CLOEXEC | O_NOCTTY | O_NONBLOCK, mode);
    } while (descriptor < 0 && errno == EINTR);
    return aboveStandardStreams(descriptor);
}

std::int64_t platform::readAt(int descriptor, std::int64_t offset, void* buffer, std::size_t count)
{
    auto* bytes = static_cast<std::uint8_t*>(buffer);
    return transfer(count, [&](std::size_t done) {
        return pread(descriptor, bytes + done, count - done,
                     offset + static_cast<std::int64_t>(done));
    });
}

std::int64_t platform::writeAt(int descriptor, std::int64_t offset, const void* buffer,
                               std::size_t count)
{
    const auto* bytes = static_cast<const std::uint8_t*>(buffer);
    return transfer(count, [&](std::size_t done) {
        return pwrite(descriptor, bytes + done, count - done,
                      offset + static_cast<std::int64_t>(done));
    });
}

platform::DescriptorHolder::~DescriptorHolder()
{
    if (descriptor_ > 0) close(descriptor_);
}
