#include "lib/files/catalogue_facts.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace pinorama;

namespace {
constexpr std::uint16_t kFolder = 0x0010;
constexpr std::uint16_t kLocked = 0x0001;
constexpr std::uint16_t kMayNotSearch = 0x01;
constexpr std::uint16_t kMayNotRead = 0x02;
constexpr std::uint16_t kMayNotChange = 0x04;
constexpr std::uint16_t kNotOwner = 0x80;

bool may(const std::string& path, int what)
{
    return faccessat(AT_FDCWD, path.c_str(), what, AT_EACCESS | AT_SYMLINK_NOFOLLOW) == 0;
}
}  // namespace

pinorama::CatalogueFacts pinorama::catalogueFactsOf(const std::string& path)
{
    CatalogueFacts facts{};
    struct statx found;
    if (statx(AT_FDCWD, path.c_str(), AT_SYMLINK_NOFOLLOW, STATX_BASIC_STATS, &found) != 0)
        return facts;

    const bool search = may(path, X_OK);
    const bool read = may(path, R_OK);
    const bool write = may(path, W_OK);
    facts.userAccess =
        static_cast<std::uint8_t>((read ? 4 : 0) | (write ? 2 : 0) | (search ? 1 : 0));
    facts.userPrivileges = static_cast<std::uint16_t>(
        (search ? 0 : kMayNotSearch) | (read ? 0 : kMayNotRead) | (write ? 0 : kMayNotChange) |
        (found.stx_uid == geteuid() ? 0 : kNotOwner));
    facts.nodeFlags = static_cast<std::uint16_t>(
        (S_ISDIR(found.stx_mode) ? kFolder : 0) |
        ((found.stx_attributes & STATX_ATTR_IMMUTABLE) != 0 ? kLocked : 0));
    facts.ownerID = found.stx_uid;
    facts.groupID = found.stx_gid;
    facts.mode = found.stx_mode;
    return facts;
}
