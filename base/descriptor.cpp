#include "base/descriptor.h"

#include "base/status.h"

#include <cerrno>

#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

namespace pinorama {
namespace {
constexpr int kFirstOwnDescriptor = 3;

// Calls step(done) until `count` bytes are done, no more are moved, or a step fails. A count of 0
// makes one step, so that a bad descriptor is reported all the same.
template <typename Step>
std::int64_t transfer(std::size_t count, Step step)
{
    std::size_t done = 0;
    while (true) {
        const ssize_t moved = step(done);
        if (moved < 0 && errno == EINTR) continue;
        if (moved < 0) return -1;
        done += static_cast<std::size_t>(moved);
        if (moved == 0 || done == count) return static_cast<std::int64_t>(done);
    }
}

// False with errno set unless a transfer moved all of `count` bytes.
bool isWhole(std::int64_t moved, std::size_t count)
{
    if (moved >= 0 && moved != static_cast<std::int64_t>(count)) errno = EIO;
    return moved == static_cast<std::int64_t>(count);
}

void waitUntilWritable(int descriptor)
{
    pollfd state = {.fd = descriptor, .events = POLLOUT, .revents = 0};
    (void)poll(&state, 1, -1);
}

// Appends at the end that fstat reports, for file systems that cannot do it in one step.
ssize_t writeAtTheEnd(int descriptor, const void* bytes, std::size_t count)
{
    struct stat facts = {};
    if (fstat(descriptor, &facts) != 0) return -1;
    return pwrite(descriptor, bytes, count, facts.st_size);
}
}  // namespace

std::int32_t statusOfErrno(int error)
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

int aboveStandardStreams(int descriptor)
{
    if (descriptor < 0 || descriptor >= kFirstOwnDescriptor) return descriptor;
    const int moved = fcntl(descriptor, F_DUPFD_CLOEXEC, kFirstOwnDescriptor);
    const int error = errno;
    close(descriptor);
    errno = error;
    return moved;
}

int openDescriptor(const char* path, int flags, mode_t mode)
{
    int descriptor = -1;
    do {
        descriptor = open(path, flags | O_CLOEXEC | O_NOCTTY | O_NONBLOCK, mode);
    } while (descriptor < 0 && errno == EINTR);
    return aboveStandardStreams(descriptor);
}

std::int64_t readAt(int descriptor, std::int64_t offset, void* buffer, std::size_t count)
{
    auto* bytes = static_cast<std::uint8_t*>(buffer);
    return transfer(count, [&](std::size_t done) {
        return pread(descriptor, bytes + done, count - done,
                     offset + static_cast<std::int64_t>(done));
    });
}

std::int64_t writeAt(int descriptor, std::int64_t offset, const void* buffer, std::size_t count)
{
    const auto* bytes = static_cast<const std::uint8_t*>(buffer);
    return transfer(count, [&](std::size_t done) {
        return pwrite(descriptor, bytes + done, count - done,
                      offset + static_cast<std::int64_t>(done));
    });
}

bool writeAll(int descriptor, std::string_view bytes, FullPipe fullPipe)
{
    if (bytes.empty()) return true;
    const std::int64_t written = transfer(bytes.size(), [&](std::size_t done) {
        while (true) {
            const ssize_t moved = write(descriptor, bytes.data() + done, bytes.size() - done);
            const bool waits = moved < 0 && errno == EAGAIN && fullPipe == FullPipe::waits;
            if (!waits) return moved;
            waitUntilWritable(descriptor);
        }
    });
    return isWhole(written, bytes.size());
}

bool sendAll(int socket, std::span<const std::uint8_t> bytes)
{
    if (bytes.empty()) return true;
    const std::int64_t sent = transfer(bytes.size(), [&](std::size_t done) {
        return send(socket, bytes.data() + done, bytes.size() - done, MSG_NOSIGNAL);
    });
    return isWhole(sent, bytes.size());
}

std::int64_t appendTo(int descriptor, const void* buffer, std::size_t count)
{
    const auto* bytes = static_cast<const std::uint8_t*>(buffer);
    return transfer(count, [&](std::size_t done) {
        const iovec rest = {const_cast<std::uint8_t*>(bytes) + done, count - done};
        const ssize_t moved = pwritev2(descriptor, &rest, 1, 0, RWF_APPEND);
        if (moved >= 0 || (errno != EOPNOTSUPP && errno != ENOSYS)) return moved;
        return writeAtTheEnd(descriptor, bytes + done, count - done);
    });
}

bool flushDescriptor(int descriptor)
{
    int result = -1;
    do {
        result = fsync(descriptor);
    } while (result < 0 && errno == EINTR);
    return result == 0;
}

DescriptorHolder::~DescriptorHolder()
{
    if (descriptor_ > 0) close(descriptor_);
}

}  // namespace pinorama
