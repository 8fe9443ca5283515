// Renaming and moving within one file system, never over an existing item.

#pragma once

#include <string>

namespace pinorama {

// Gives the item at `from` the path `to`. Symbolic links are moved, not followed.
//
// False with errno set: EEXIST when something stands at `to`, and then both are left as they are;
// EXDEV when `to` is on another file system.
bool moveWithoutReplacing(const std::string& from, const std::string& to);

// The same for file systems that cannot refuse to replace. A file is linked at `to` first, which
// never replaces; for a folder, and where there are no links, another program could still put an
// item at `to` between the question and the move.
bool moveInSteps(const std::string& from, const std::string& to);

}  // namespace pinorama
