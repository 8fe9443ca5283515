// Absolute paths of existing items and of items that are about to be made, in the raw bytes of the
// system.

#pragma once

#include <string>
#include <string_view>

namespace pinorama {

// The absolute path of an existing item: symbolic links at its end are followed, slashes at its end
// and the parts "." and ".." are gone.
//
// Returns an empty path with errno set on failure. One system call for an absolute path that is no
// link and has no such parts.
std::string resolvedPath(const char* path);

// The path that the link at `path` leads to, over any number of further links and whether or not
// there is something; any other path as it stands. A link below /proc stands for a file that a
// process holds open: it leads to no path, and is given as it stands.
//
// Returns an empty path with errno set when links lead round in a circle or cannot be read.
std::string pathBehindLinks(std::string path);

// The path of `name` in `folder`; empty with errno set for a name that no item can have, and for an
// empty `folder`, which is none and not the root folder.
std::string childPath(const std::string& folder, std::string_view name);

// The folder part of an absolute path; empty for the root folder.
std::string folderOf(const std::string& path);

// The last part of an absolute path; "/" for the root folder. Borrowed from `path`.
std::string_view nameOf(std::string_view path);

// True when something stands at the path, be it a link that leads nowhere. False with errno set.
bool itemExists(const std::string& path);

}  // namespace pinorama
