#include "selection/watched_folders.h"

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <memory>
#include <set>
#include <sstream>
#include <string>
#include <utility>

namespace pinorama {

std::function<bool(const ItemFacts&)> foldersWatchedBy(pid_t process)
{
    using Inode =
        std::pair<std::uint64_t, std::uint64_t>;  // device as the kernel encodes it, number
    auto watched = std::make_shared<std::set<Inode>>();

    const std::string folder = "/proc/" + std::to_string(process);
    std::error_code failure;
    for (const auto& entry : std::filesystem::directory_iterator(folder + "/fd", failure)) {
        std::error_code gone;
        if (std::filesystem::read_symlink(entry.path(), gone) != "anon_inode:inotify") continue;
        std::ifstream lines(folder + "/fdinfo/" + entry.path().filename().string());
        // One line per watch: inotify wd:3 ino:9e7e sdev:800013 mask:800afce ignored_mask:0 ...
        for (std::string line; std::getline(lines, line);) {
            std::istringstream words(line);
            Inode inode = {};
            for (std::string word; words >> word;) {
                std::istringstream digits(word.substr(word.find(':') + 1));
                if (word.starts_with("ino:")) digits >> std::hex >> inode.second;
                if (word.starts_with("sdev:")) digits >> std::hex >> inode.first;
            }
            if (line.starts_with("inotify")) watched->insert(inode);
        }
    }
    return [watched](const ItemFacts& facts) {
        return facts.inode != 0 && watched->contains({facts.device, facts.inode});
    };
}

}  // namespace pinorama
