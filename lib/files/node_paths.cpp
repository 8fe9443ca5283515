#include "lib/files/node_paths.h"

#include "base/item_path.h"
#include "base/user_folders.h"
#include "lib/files/mounts.h"

#include <cerrno>
#include <deque>
#include <filesystem>
#include <memory>
#include <string_view>

#include <dirent.h>
#include <sys/stat.h>

using namespace pinorama;

namespace {
constexpr std::size_t kMaxRemembered = 512;  // nodes
constexpr int kMaxSearched = 5000;           // items looked at below one place
constexpr int kMaxSearchDepth = 3;           // folders below a place

struct NodePath {
    Node node;
    std::string path;
};

std::deque<NodePath> gSeen;  // the latest first

bool look(const std::string& path, pinorama::Node* node)
{
    struct stat facts = {};
    if (lstat(path.c_str(), &facts) != 0) return false;
    *node = {facts.st_dev, facts.st_ino};
    return true;
}

bool isAt(const pinorama::Node& node, const std::string& path)
{
    Node found = {};
    return look(path, &found) && found == node;
}

void remember(const pinorama::Node& node, const std::string& path)
{
    std::erase_if(gSeen, [&](const NodePath& seen) { return seen.node == node; });
    gSeen.push_front({node, path});
    if (gSeen.size() > kMaxRemembered) gSeen.pop_back();
}

struct CloseFolder {
    void operator()(DIR* folder) const { closedir(folder); }
};

// Looks for a node below `place`, level by level and never on another volume.
std::string searchBelow(const std::string& place, const pinorama::Node& node)
{
    struct Level {
        std::string path;
        int depth;
    };
    std::deque<Level> waiting = {{place, 0}};
    for (int left = kMaxSearched; !waiting.empty(); waiting.pop_front()) {
        const Level level = waiting.front();
        Node here = {};
        if (!look(level.path, &here) || here.volume != node.volume) continue;
        const std::unique_ptr<DIR, CloseFolder> folder(opendir(level.path.c_str()));
        if (!folder) continue;
        while (const dirent* item = readdir(folder.get())) {
            if (left-- == 0) return {};
            const std::string path = childPath(level.path, item->d_name);
            if (path.empty()) continue;  // "." and ".."
            if (item->d_ino == node.number && isAt(node, path)) return path;
            if (item->d_type == DT_DIR && level.depth + 1 < kMaxSearchDepth) {
                waiting.push_back({path, level.depth + 1});
            }
        }
    }
    return {};
}

std::string searchAround(const std::string& place, const pinorama::Node& node)
{
    for (std::string path = place; !path.empty(); path = folderOf(path)) {
        if (isAt(node, path)) return path;
    }
    return searchBelow(place, node);
}

std::string search(const pinorama::Node& node)
{
    for (const Mount& mount : mountedVolumes()) {
        if (mount.device == node.volume && isAt(node, mount.folder)) return mount.folder;
    }
    std::error_code ignored;
    const std::string places[] = {std::filesystem::current_path(ignored).string(), homeFolder(),
                                  std::filesystem::temp_directory_path(ignored).string()};
    for (const std::string& place : places) {
        if (place.empty()) continue;
        std::string path = searchAround(place, node);
        if (!path.empty()) return path;
    }
    return {};
}
}  // namespace

bool pinorama::nodeAt(const std::string& path, Node* node)
{
    if (!look(path, node)) return false;
    remember(*node, path);
    return true;
}

std::string pinorama::pathOfNode(const Node& node)
{
    for (const NodePath& seen : gSeen) {
        if (seen.node == node && isAt(node, seen.path)) return seen.path;
    }
    std::string path = search(node);
    if (path.empty()) {
        errno = ENOENT;
        return {};
    }
    remember(node, path);
    return path;
}
