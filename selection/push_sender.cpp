#include "selection/push_sender.h"

#include <climits>
#include <string>

#include <sys/stat.h>
#include <unistd.h>

namespace pinorama {
namespace {
constexpr std::string_view kDeleted = " (deleted)";
constexpr uid_t kRoot = 0;
}  // namespace

const FileManagerKind* fileManagerKindOfExecutable(const Executable& executable)
{
    if (executable.owner != kRoot || !S_ISREG(executable.mode) ||
        (executable.mode & (S_IWGRP | S_IWOTH)) != 0) {
        return nullptr;
    }
    std::string_view name = executable.path;
    // An update replaces the file of a running file manager.
    if (name.ends_with(kDeleted)) name.remove_suffix(kDeleted.size());
    if (!name.starts_with('/')) return nullptr;
    return fileManagerKind(name.substr(name.rfind('/') + 1));
}

const FileManagerKind* fileManagerKindOfSender(pid_t process)
{
    const std::string link = "/proc/" + std::to_string(process) + "/exe";
    char path[PATH_MAX];
    const ssize_t length = readlink(link.c_str(), path, sizeof path);
    struct stat facts = {};
    // The link leads to the file that runs, whatever has its path by now.
    if (length <= 0 || stat(link.c_str(), &facts) != 0) return nullptr;
    return fileManagerKindOfExecutable(
        {{path, static_cast<std::size_t>(length)}, facts.st_uid, facts.st_mode});
}

}  // namespace pinorama
