// The pictures in folders, one path after the other. Nothing is kept of the tree but the listings
// of the folders on the way down to where the walk is.

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
    // What to call with a folder that could not be read: its path, and why.
    using Complain = std::function<void(const std::string& path, const std::string& why)>;

    // `starts` are walked through in their order. One that is no folder is given as it is, whatever
    // it is; so are folders when `recursive` is false.
    FolderWalk(std::vector<std::string> starts, bool recursive, Complain complain);

    // The next path: the start as it was given and the way down from there. In a folder the names
    // are in the order of their bytes, and a folder is walked through where its name stands. Only
    // names of the accepted types count, also those of links to regular files; what a link leads
    // to that is a folder is not walked through, so that no walk goes in circles.
    std::optional<std::string> next();

private:
    // A folder's names in their order, in one block: the kind, the name, a zero byte.
    struct Listing {
        std::string block{};
        std::vector<std::uint32_t> names{};  // offsets in the block
        std::size_t next = 0;
        std::size_t pathLength = 0;  // of the folder in path_, with the slash at its end
    };

    bool enter(bool isStart);
    bool list(int descriptor, Listing* listing);
    void addName(int folder, const char* name, unsigned char type, Listing* listing);

    std::vector<std::string> starts_;
    std::size_t nextStart_ = 0;
    bool recursive_;
    Complain complain_;
    AcceptedNames accepted_;
    std::string path_;
    std::vector<Listing> levels_;
};

}  // namespace pinorama
