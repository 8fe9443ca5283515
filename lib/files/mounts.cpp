#include "lib/files/mounts.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>

#include <sys/stat.h>
#include <sys/sysmacros.h>

using namespace pinorama;

namespace {
namespace fs = std::filesystem;

// Takes the text up to the next blank off the line.
std::string_view takeField(std::string_view* line)
{
    const std::size_t end = std::min(line->find(' '), line->size());
    const std::string_view field = line->substr(0, end);
    line->remove_prefix(std::min(end + 1, line->size()));
    return field;
}

// Reads "8:1". False for everything else.
bool readDevice(std::string_view text, std::uint64_t* device)
{
    unsigned major = 0;
    unsigned minor = 0;
    const char* end = text.data() + text.size();
    const auto [colon, error] = std::from_chars(text.data(), end, major);
    if (error != std::errc() || colon == end || *colon != ':') return false;
    const auto last = std::from_chars(colon + 1, end, minor);
    if (last.ec != std::errc() || last.ptr != end) return false;
    *device = makedev(major, minor);
    return true;
}

// Blanks, tabs, line feeds and backslashes are escaped as a backslash and three octal digits.
std::string withoutEscapes(std::string_view field)
{
    std::string text;
    for (std::size_t i = 0; i < field.size(); i++) {
        unsigned byte = 0;
        if (field[i] == '\\' && i + 3 < field.size() &&
            std::from_chars(field.data() + i + 1, field.data() + i + 4, byte, 8).ptr ==
                field.data() + i + 4) {
            text += static_cast<char>(byte);
            i += 3;
        } else {
            text += field[i];
        }
    }
    return text;
}

// The system's folder of the disk that a volume is on: the one above a partition's. Empty for a
// volume that is on no disk.
fs::path diskOf(std::uint64_t device)
{
    const std::string link =
        "/sys/dev/block/" + std::to_string(major(device)) + ":" + std::to_string(minor(device));
    std::error_code error;
    fs::path folder = fs::canonical(link, error);
    if (error) return {};
    return fs::exists(folder / "partition", error) ? folder.parent_path() : folder;
}
}  // namespace

std::vector<pinorama::Mount> pinorama::mountsInText(std::string_view text)
{
    std::vector<Mount> mounts;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));

        takeField(&line);  // the mount's number
        takeField(&line);  // its parent's
        Mount mount = {};
        if (!readDevice(takeField(&line), &mount.device)) continue;
        takeField(&line);  // the folder of the volume that is mounted
        mount.folder = withoutEscapes(takeField(&line));
        if (mount.folder.starts_with('/')) mounts.push_back(std::move(mount));
    }
    return mounts;
}

std::vector<pinorama::Mount> pinorama::mountedVolumes()
{
    std::ostringstream text;
    text << std::ifstream("/proc/self/mountinfo").rdbuf();
    std::vector<Mount> mounts = mountsInText(text.str());
    const auto isRoot = [](const Mount& mount) { return mount.folder == "/"; };
    struct stat root = {};
    if (std::none_of(mounts.begin(), mounts.end(), isRoot) && stat("/", &root) == 0)
        mounts.push_back({root.st_dev, "/"});
    return mounts;
}

std::uint32_t pinorama::countVolumesOnDisk(std::uint64_t device)
{
    const fs::path disk = diskOf(device);
    std::set<std::uint64_t> volumes = {device};
    for (const Mount& mount : mountedVolumes()) {
        if (!disk.empty() && diskOf(mount.device) == disk) volumes.insert(mount.device);
    }
    return static_cast<std::uint32_t>(volumes.size());
}
