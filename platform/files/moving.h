// Renaming and moving within one file system, never over an existing item.

#pragma once

#include <string>

namespace platform {

// Gives the item at `from` the path `to`. Symbolic links are moved, not followed.
//
// False with errno set: EEXIST when something stands at `to`, and then both are left as they are;
// EXDEV when `to` is on another file system.
bool moveWithoutReplacing(const std::string& from, const std::string& to);

}  // namespace platform
