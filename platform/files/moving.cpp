#include "platform/files/moving.h"

#include "platform/files/item_path.h"

#include <cerrno>
#include <cstdio>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {
// For file systems that cannot refuse to replace: a link is never made over an existing name.
// Folders have no links, and some file systems have none at all; there another program could still
// put an item at `to` between the question and the move.
bool moveInSteps(const std::string& from, const std::string& to)
{
    if (link(from.c_str(), to.c_str()) == 0) return unlink(from.c_str()) == 0;
    if (errno == EEXIST) return false;
    if (platform::itemExists(to)) {
        errno = EEXIST;
        return false;
    }
    return std::rename(from.c_str(), to.c_str()) == 0;
}
}  // namespace

bool platform::moveWithoutReplacing(const std::string& from, const std::string& to)
{
    if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return true;
    if (errno != EINVAL && errno != ENOSYS) return false;
    return moveInSteps(from, to);
}
