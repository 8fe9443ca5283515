#include "opener/mount_list.h"

#include "base/descriptor.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <climits>
#include <iterator>

#include <fcntl.h>
#include <unistd.h>

namespace pinorama {
namespace {
constexpr int kMaxLinks = 40;  // as many as the system follows

// Takes the first word off a line.
std::string_view takeWord(std::string_view* line)
{
    const std::string_view word = line->substr(0, line->find(' '));
    line->remove_prefix(std::min(line->size(), word.size() + 1));
    return word;
}

bool readNumber(std::string_view digits, std::uint32_t* out)
{
    const auto [end, error] = std::from_chars(digits.begin(), digits.end(), *out);
    return error == std::errc() && end == digits.end();
}

// The device "8:1"; 0 if it is malformed. Minor numbers have fewer than 32 bits, and the device of
// a file system is never 0:0.
std::uint64_t deviceIn(std::string_view word)
{
    const std::size_t colon = word.find(':');
    std::uint32_t major = 0;
    std::uint32_t minor = 0;
    if (colon == word.npos || !readNumber(word.substr(0, colon), &major) ||
        !readNumber(word.substr(colon + 1), &minor)) {
        return 0;
    }
    return std::uint64_t{major} << 32 | minor;
}

// The type of the file system in the rest of a line, after fields of any number and a dash.
std::string_view typeIn(std::string_view rest)
{
    const std::size_t dash = rest.find(" - ");
    if (dash == rest.npos) return {};
    rest.remove_prefix(dash + 3);
    return takeWord(&rest);
}

// They tell a server that a file has been given up, and wait for its reply. Those in user space are
// told without waiting, all but fuseblk.
bool isKeepingType(std::string_view type)
{
    constexpr std::string_view kTypes[] = {"nfs",  "nfs4",   "cifs", "smb3",   "afs",
                                           "ceph", "lustre", "coda", "fuseblk"};
    return std::ranges::find(kTypes, type) != std::end(kTypes);
}

bool isOctal(char c)
{
    return c >= '0' && c <= '7';
}

// Blanks, tabs, line feeds and backslashes stand as three octal digits.
std::string unescaped(std::string_view word)
{
    std::string path;
    for (std::size_t i = 0; i < word.size(); i++) {
        if (word[i] == '\\' && i + 3 < word.size() && isOctal(word[i + 1]) &&
            isOctal(word[i + 2]) && isOctal(word[i + 3])) {
            path += static_cast<char>((word[i + 1] - '0') << 6 | (word[i + 2] - '0') << 3 |
                                      (word[i + 3] - '0'));
            i += 3;
        } else {
            path += word[i];
        }
    }
    return path;
}

std::string currentFolder()
{
    char folder[PATH_MAX];
    const bool isBelowRoot = getcwd(folder, sizeof folder) != nullptr && folder[1] != '\0';
    return isBelowRoot ? folder : "";
}

// Where the link at `path` leads; empty for what is no link or cannot be looked at.
std::string targetOf(const std::string& path, bool* outIsThere)
{
    char target[PATH_MAX];
    const ssize_t length = readlink(path.c_str(), target, sizeof target);
    *outIsThere = length >= 0 || errno == EINVAL;
    return {target, length > 0 ? static_cast<std::size_t>(length) : 0};
}
}  // namespace

MountList MountList::current()
{
    constexpr std::size_t kMaxSize = 16 << 20;  // bytes
    const DescriptorHolder file(openDescriptor("/proc/self/mountinfo", O_RDONLY));
    std::string text;
    char part[4096];
    ssize_t count = 0;
    while (text.size() < kMaxSize && (count = read(file.get(), part, sizeof part)) > 0) {
        text.append(part, static_cast<std::size_t>(count));
    }
    return MountList(text);
}

MountList::MountList(std::string_view mountinfo)
{
    while (!mountinfo.empty()) {
        std::string_view line = mountinfo.substr(0, mountinfo.find('\n'));
        mountinfo.remove_prefix(std::min(mountinfo.size(), line.size() + 1));
        (void)takeWord(&line);  // number
        (void)takeWord(&line);  // number of the mount that it is in
        const std::uint64_t device = deviceIn(takeWord(&line));
        (void)takeWord(&line);  // root
        const std::string path = unescaped(takeWord(&line));
        // Of two mounts over one folder the later one is seen.
        if (device == 0 || !path.starts_with('/')) continue;
        devices_[path] = device;
        if (isKeepingType(typeIn(line))) keeping_.insert(device);
    }
}

std::uint64_t MountList::deviceOf(std::string_view path) const
{
    while (true) {
        const auto found = devices_.find(path.empty() ? std::string_view("/") : path);
        if (found != devices_.end()) return found->second;
        if (path.empty()) return 0;
        path = path.substr(0, path.rfind('/'));
    }
}

bool followPath(std::string_view path, const MountList& mounts,
                const std::function<bool(std::uint64_t device)>& enter)
{
    std::string rest(path);
    std::string done = path.starts_with('/') ? std::string() : currentFolder();
    std::uint64_t device = mounts.deviceOf(done);
    if (!enter(device)) return false;
    int links = 0;
    while (!rest.empty()) {
        const std::string part = rest.substr(0, rest.find('/'));
        rest.erase(0, std::min(rest.size(), part.size() + 1));
        if (part.empty() || part == ".") continue;
        if (part == "..") {
            done.resize(done.empty() ? 0 : done.rfind('/'));
            continue;
        }
        const std::string step = done + '/' + part;
        const std::uint64_t next = mounts.deviceOf(step);
        if (next != device && !enter(next)) return false;
        device = next;
        bool isThere = false;
        const std::string target = targetOf(step, &isThere);
        if (!isThere) return true;
        if (target.empty()) {
            done = step;
            continue;
        }
        if (done.starts_with("/proc/") || ++links > kMaxLinks) return true;
        if (target.starts_with('/')) done.clear();
        rest = target + '/' + rest;
    }
    return true;
}

}  // namespace pinorama
