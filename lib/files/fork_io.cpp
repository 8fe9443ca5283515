#include "lib/files/fork_io.h"

#include "base/alloc.h"
#include "base/block_holder.h"
#include "base/status.h"
#include "lib/files/file_reference.h"
#include "lib/files/path_block.h"

#include <algorithm>
#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace pinorama;

HFSUniStr255 forkName = {};

namespace {
constexpr std::uint64_t kMaxCopyBufferSize = 0x1000000;  // bytes

// Descriptors up to 2 are the standard streams: never opened here, so never touched here.
bool isFork(ForkRef forkRef)
{
    return forkRef > STDERR_FILENO;
}

std::int32_t lastStatus()
{
    return statusOfErrno(errno);
}

// The status of a transfer that moved `moved` bytes, or failed with -1.
std::int32_t statusOfTransfer(std::int64_t moved, std::uint64_t wanted)
{
    if (moved < 0) return lastStatus();
    return static_cast<std::uint64_t>(moved) == wanted ? kErrNone : kErrShortTransfer;
}
}  // namespace

std::int32_t feInitialize()
{
    forkName = {};
    return kErrNone;
}

std::int32_t feCreateAndOpenTextFile(TovStringRef path, ForkRef* outForkRef)
{
    *outForkRef = 0;
    const PathBlock block(path);
    if (!block) return kErrNoMemory;

    // Whether the file could be made shows when it is opened.
    (void)ForkCloser(openDescriptor(block.bytes(), O_CREAT, 0777));

    FSRef ref;
    const std::int32_t status = feMakeFSRefFromBytes(block.bytes(), &ref);
    if (status != kErrNone) return status;
    return feOpenExistingFileRef(&ref, outForkRef, 1, 1);
}

std::int32_t feOpenExistingFileRef(const FSRef* ref, ForkRef* outForkRef,
                                   std::uint8_t writePermission, std::uint8_t dataFork)
{
    *outForkRef = 0;
    struct stat facts = {};
    if (dataFork != 1) {
        return stat(ref->path.c_str(), &facts) == 0 ? kErrNothingUsable : lastStatus();
    }
    const int flags = writePermission == 1 ? O_RDWR : O_RDONLY;
    ForkCloser fork(openDescriptor(ref->path.c_str(), flags));
    if (!fork || fstat(fork.get(), &facts) != 0) return lastStatus();
    // The system opens folders for reading; no byte could be read from one.
    if (S_ISDIR(facts.st_mode)) return statusOfErrno(EISDIR);
    *outForkRef = fork.take();
    return kErrNone;
}

std::int32_t feCloseFork(ForkRef forkRef)
{
    if (!isFork(forkRef)) return kErrNotOpen;
    // An interrupted close has closed all the same.
    return close(forkRef) == 0 || errno == EINTR ? kErrNone : lastStatus();
}

std::int32_t feReadFromFile(ForkRef forkRef, std::int64_t offset, std::uint32_t count, void* buffer)
{
    if (!isFork(forkRef)) return kErrNotOpen;
    return statusOfTransfer(readAt(forkRef, offset, buffer, count), count);
}

std::int32_t feWriteToFile(ForkRef forkRef, std::int64_t offset, std::uint32_t count,
                           const void* buffer)
{
    if (!isFork(forkRef)) return kErrNotOpen;
    return statusOfTransfer(writeAt(forkRef, offset, buffer, count), count);
}

std::int32_t feAppendToFile(ForkRef forkRef, std::uint32_t count, const void* buffer)
{
    if (!isFork(forkRef)) return kErrNotOpen;
    return statusOfTransfer(appendTo(forkRef, buffer, count), count);
}

std::int32_t feGetEOF(ForkRef forkRef, std::int64_t* outSize)
{
    *outSize = 0;
    if (!isFork(forkRef)) return kErrNotOpen;
    struct stat facts = {};
    if (fstat(forkRef, &facts) != 0) return lastStatus();
    *outSize = facts.st_size;
    return kErrNone;
}

std::int32_t feSetEOF(ForkRef forkRef, std::int64_t size)
{
    if (!isFork(forkRef)) return kErrNotOpen;
    int result = 0;
    do {
        result = ftruncate(forkRef, size);
    } while (result != 0 && errno == EINTR);
    return result == 0 ? kErrNone : lastStatus();
}

std::int32_t feCopyFileData(ForkRef sourceFork, std::int64_t sourceOffset, std::uint64_t count,
                            ForkRef destFork, std::int64_t destOffset)
{
    const std::uint64_t bufferSize = std::min(count, kMaxCopyBufferSize);
    const BlockHolder buffer(baseAllocate(bufferSize));
    if (!buffer) return kErrNoMemory;

    std::uint64_t done = 0;
    while (done < count) {
        const auto pass = static_cast<std::uint32_t>(std::min(bufferSize, count - done));
        const auto offset = static_cast<std::int64_t>(done);
        std::int32_t status = feReadFromFile(sourceFork, sourceOffset + offset, pass, buffer.get());
        if (status != kErrNone) return status;
        status = feWriteToFile(destFork, destOffset + offset, pass, buffer.get());
        if (status != kErrNone) return status;
        done += pass;
    }
    return kErrNone;
}
