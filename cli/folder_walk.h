// Finds the pictures in folders and their subfolders, one path at a time. Memory holds the listings
// of the folders from the start down to the current one, nothing else of the tree.
//
//     FolderWalk walk(folders, true, [](const std::string& path, const std::string& why) {
//         printError(path, why);
//     });
//     while (const auto path = walk.next()) read(*path);

#pragma once

#include "cli/accepted_names.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace pinorama {

class FolderWalk {
public:
    // Called for a folder that cannot be read, with its path and the reason.
    using OnError = std::function<void(const std::string& path, const std::string& why)>;

    // Gives the next start; nothing after the last one.
    using StartSource = std::function<std::optional<std::string>()>;

    // Walks through the starts in their order. A start that is not a folder is returned as it is;
    // so is a folder if `recursive` is false.
    FolderWalk(StartSource starts, bool recursive, OnError onError);
    FolderWalk(std::vector<std::string> starts, bool recursive, OnError onError);

    // The next path: a start as it was given, followed by the names below it. The names in a folder
    // are sorted by their bytes, with the contents of a subfolder at the place of its name. Only
    // regular files of the accepted types count, and links to them. Links to folders are not
    // followed, so no walk goes in circles.
    std::optional<std::string> next();

private:
    // The sorted names in a folder, in one block: the kind, the name, a zero byte.
    struct Listing {
        std::string block{};
        std::vector<std::uint32_t> names{};  // offsets in the block
        std::size_t next = 0;
        std::size_t pathLength = 0;  // of the folder in path_, with the slash at its end
    };

    bool enter(bool isStart);
    bool list(int descriptor, Listing* listing);
    void addName(int folder, const char* name, unsigned char type, Listing* listing);

    StartSource starts_;
    bool recursive_;
    OnError onError_;
    AcceptedNames accepted_;
    std::string path_;
    std::vector<Listing> levels_;
};

}  // namespace pinorama
