// The user's Trash as all desktops of the system share it: freedesktop.org Trash Specification 1.0.

#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace pinorama {

enum class TrashName {
    any,         // a number is added to the name until it is free in the Trash
    wantedOnly,  // a taken name is a failure
};

struct TrashResult {
    std::int32_t status;  // 0: the item is in the Trash; else it is where it was
    bool hasTrash;        // false: no Trash can be made that the item could be moved to
};

// Moves an item into the Trash of its file system: the one of the home folder, the administrator's
// $topdir/.Trash/$uid, or $topdir/.Trash-$uid, which are made when missing. Where the item came
// from and when it went is recorded beside it, so that every file manager can put it back. A
// symbolic link goes itself.
//
//   wantedName  the name in the Trash.
//
// The status is -48 when the name is taken and no other one was allowed.
TrashResult moveToTrash(const std::string& path, std::string_view wantedName, TrashName naming);

}  // namespace pinorama
