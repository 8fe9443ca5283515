#include "base/item_path.h"

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <memory>

#include <sys/stat.h>
#include <unistd.h>

namespace pinorama {
namespace {
struct FreeBlock {
    void operator()(char* block) const { std::free(block); }
};

// True when a part of the path is empty, "." or "..".
bool hasPartsToResolve(std::string_view path)
{
    return path.find("//") != path.npos || path.find("/./") != path.npos ||
           path.find("/../") != path.npos || path.ends_with("/.") || path.ends_with("/..");
}

std::string absolutePath(std::string_view path)
{
    if (path.starts_with('/')) return std::string(path);
    char folder[PATH_MAX];
    if (getcwd(folder, sizeof folder) == nullptr) return {};
    return std::string(folder) + "/" + std::string(path);
}

std::string canonicalPath(const std::string& path)
{
    const std::unique_ptr<char, FreeBlock> resolved(realpath(path.c_str(), nullptr));
    return resolved ? resolved.get() : std::string();
}
}  // namespace

std::string resolvedPath(const char* path)
{
    std::string_view trimmed = path;
    while (trimmed.size() > 1 && trimmed.ends_with('/')) trimmed.remove_suffix(1);
    const bool mustBeFolder = trimmed.size() != std::string_view(path).size();
    if (trimmed.empty()) {
        errno = ENOENT;
        return {};
    }
    std::string result = absolutePath(trimmed);
    if (result.empty()) return {};

    struct stat facts = {};
    if (lstat(result.c_str(), &facts) != 0) return {};
    if (S_ISLNK(facts.st_mode) || hasPartsToResolve(result)) {
        result = canonicalPath(result);
        if (result.empty() || lstat(result.c_str(), &facts) != 0) return {};
    }
    if (mustBeFolder && !S_ISDIR(facts.st_mode)) {
        errno = ENOTDIR;
        return {};
    }
    return result;
}

std::string pathBehindLinks(std::string path)
{
    constexpr int kMaxLinks = 40;  // as many as the system follows
    for (int links = 0; links <= kMaxLinks; links++) {
        struct stat facts = {};
        if (lstat(path.c_str(), &facts) != 0 || !S_ISLNK(facts.st_mode)) return path;
        const std::string own = absolutePath(path);
        const std::string folder = own.empty() ? own : canonicalPath(folderOf(own));
        if (folder.empty()) return {};
        if (folder.starts_with("/proc/")) return path;
        char target[PATH_MAX];
        const ssize_t length = readlink(path.c_str(), target, sizeof target);
        if (length < 0) return {};
        path.assign(target, static_cast<std::size_t>(length));
        if (!path.starts_with('/')) path.insert(0, folder == "/" ? folder : folder + '/');
    }
    errno = ELOOP;
    return {};
}

std::string childPath(const std::string& folder, std::string_view name)
{
    if (folder.empty()) {
        errno = ENOENT;
        return {};
    }
    if (name.empty() || name == "." || name == ".." ||
        name.find_first_of(std::string_view("/\0", 2)) != name.npos) {
        errno = ENAMETOOLONG;  // the one errno that speaks of names
        return {};
    }
    std::string path = folder;
    if (!path.ends_with('/')) path += '/';
    return path.append(name);
}

std::string folderOf(const std::string& path)
{
    const std::size_t slash = path.rfind('/');
    if (path.size() <= 1 || slash == path.npos) return {};
    return path.substr(0, slash == 0 ? 1 : slash);
}

std::string_view nameOf(std::string_view path)
{
    const std::size_t slash = path.rfind('/');
    if (path.size() <= 1 || slash == path.npos) return path;
    return path.substr(slash + 1);
}

bool itemExists(const std::string& path)
{
    struct stat facts = {};
    return lstat(path.c_str(), &facts) == 0;
}

}  // namespace pinorama
