// What an opener finds out about items of folders, for whoever follows a file manager: what is at a
// path, which items of a folder may be shown by a name, and how many there are.

#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace pinorama {

constexpr std::size_t kMaxEntries = 100'000;  // of one folder that are looked at

// What is at a path.
struct ItemFacts {
    bool isKnown = false;   // false if nobody could say: its file system is left alone
    bool isThere = false;   // a symbolic link is, wherever it leads
    bool isFolder = false;  // or a link to one
    // By which the kernel knows what is there, or what a link leads to, in /proc; 0 if it leads
    // nowhere. The device is as /proc/PID/fdinfo has it, with 20 bits for the minor number.
    std::uint64_t device = 0;
    std::uint64_t inode = 0;

    friend bool operator==(const ItemFacts&, const ItemFacts&) = default;
};

// Looks at the item at `path`. Slashes at its end are ignored.
ItemFacts factsOfItem(std::string path);

// The number of items in a folder, without and with those whose names begin with a point.
struct FolderCount {
    std::uint32_t shown = 0;
    std::uint32_t all = 0;

    friend bool operator==(const FolderCount&, const FolderCount&) = default;
};

// Passes the names in a folder, in the bytes of the system and without "." and "..", until `take`
// returns false; kMaxEntries at most. None if it cannot be read.
void eachNameIn(const std::string& folder, const std::function<bool(std::string_view name)>& take);

FolderCount countItemsIn(const std::string& folder);

// Whether a file manager may show `name` as `shown`, a text in UTF-8 with composed letters. Precise
// for names in printable ASCII: those are shown whole or without their extension. Of others it is
// always true; selection/item_name.h knows the rules for them.
bool mayBeShownAs(std::string_view name, std::string_view shown);

}  // namespace pinorama
