#include "base/file_attributes.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>

namespace pinorama {
namespace {
std::optional<FileAttributes> attributesAt(int descriptor, const char* path, int flags)
{
    struct statx found {};
    constexpr unsigned kWanted = STATX_TYPE | STATX_SIZE | STATX_MTIME | STATX_BTIME;
    if (statx(descriptor, path, flags | AT_STATX_SYNC_AS_STAT, kWanted, &found) != 0) {
        return std::nullopt;
    }
    FileAttributes attributes{};
    attributes.isRegular = S_ISREG(found.stx_mode);
    attributes.type = found.stx_mode & S_IFMT;
    attributes.size = found.stx_size;
    attributes.modified = found.stx_mtime.tv_sec;
    if ((found.stx_mask & STATX_BTIME) != 0) attributes.created = found.stx_btime.tv_sec;
    return attributes;
}

std::optional<FileAttributes> attributesOfPath(const std::string& path, int flags)
{
    // A path with a NUL in it names nothing, and is not the path in front of the NUL either.
    if (path.find('\0') != std::string::npos) {
        errno = ENOENT;
        return std::nullopt;
    }
    return attributesAt(AT_FDCWD, path.c_str(), flags);
}
}  // namespace

std::optional<FileAttributes> attributesOf(const std::string& path)
{
    return attributesOfPath(path, 0);
}

std::optional<FileAttributes> attributesOfItself(const std::string& path)
{
    return attributesOfPath(path, AT_SYMLINK_NOFOLLOW);
}

std::optional<FileAttributes> attributesOf(int descriptor)
{
    return attributesAt(descriptor, "", AT_EMPTY_PATH);
}

}  // namespace pinorama
