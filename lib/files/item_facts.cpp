#include "lib/files/item_facts.h"

#include "base/descriptor.h"
#include "base/status.h"

#include <cerrno>

#include <sys/stat.h>

using namespace pinorama;

namespace {
constexpr std::int64_t kSecondsFrom1904To1970 = 2082844800;

bool look(const FSRef* ref, struct stat* facts)
{
    return stat(ref->path.c_str(), facts) == 0;
}
}  // namespace

std::uint32_t feGetFileModificationDate(const FSRef* ref)
{
    struct stat facts = {};
    if (!look(ref, &facts)) return 0;
    return static_cast<std::uint32_t>(facts.st_mtim.tv_sec + kSecondsFrom1904To1970);
}

std::int32_t feGetFileTypeAndCreator(const FSRef* ref, std::uint32_t* outType,
                                     std::uint32_t* outCreator)
{
    *outType = 0;
    *outCreator = 0;
    struct stat facts = {};
    return look(ref, &facts) ? kErrNone : statusOfErrno(errno);
}

std::int64_t feGetFileDataSize(const FSRef* ref)
{
    struct stat facts = {};
    return look(ref, &facts) && !S_ISDIR(facts.st_mode) ? facts.st_size : 0;
}

bool feIsFolder(const FSRef* ref)
{
    struct stat facts = {};
    return look(ref, &facts) && S_ISDIR(facts.st_mode);
}

bool feHasCustomIcon(const FSRef*)
{
    return false;
}
