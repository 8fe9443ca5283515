#include "lib/strings/tov_file.h"

#include "base/block_holder.h"
#include "base/status.h"
#include "lib/files/file_reference.h"
#include "lib/files/fork_io.h"
#include "lib/strings/tov_bytes.h"

#include <limits>

using namespace pinorama;

TovStringRef TovStringFromFile(const char* path)
{
    if (path == nullptr) return nullptr;
    FSRef ref;
    if (feMakeFSRefFromBytes(path, &ref) != kErrNone) return nullptr;
    ForkCloser fork;
    if (feOpenExistingFileRef(&ref, fork.slot(), 0, 1) != kErrNone) return nullptr;

    std::int64_t size = 0;
    if (feGetEOF(fork.get(), &size) != kErrNone) return nullptr;
    if (size > std::numeric_limits<std::int32_t>::max()) return nullptr;
    const auto count = static_cast<std::uint32_t>(size);
    const BlockHolder block(baseAllocateZeroed(count));
    if (!block || feReadFromFile(fork.get(), 0, count, block.get()) != kErrNone) return nullptr;
    return TovStringFromUTF8(static_cast<const char*>(block.get()),
                             static_cast<std::int32_t>(count));
}

std::int16_t TovStringWriteToFile(TovStringRef string, TovStringRef path, std::uint16_t encoding)
{
    ForkCloser fork;
    const std::int32_t status = feCreateAndOpenTextFile(path, fork.slot());
    if (status != kErrNone) return static_cast<std::int16_t>(status);

    std::uint32_t count = encoding == kTextFileUTF8 ? TovStringGetUTF8Size(string) : 0;
    const BlockHolder block(baseAllocate(count));
    if (!block) return kErrNoMemory;
    auto* bytes = static_cast<char*>(block.get());
    if (count != 0) TovStringCopyToUTF8(string, bytes, &count);
    return static_cast<std::int16_t>(feWriteToFile(fork.get(), 0, count, bytes));
}
