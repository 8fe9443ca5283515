// Where pictures that were taken near another one are looked for.

#pragma once

#include <string>
#include <vector>

namespace pinorama {

// The folders to search with everything in them, none of them inside another:
//
// - the folder of the picture and its neighbours, which is the folder above it. Where the
//   neighbours have nothing to do with each other, it is the folder of the picture alone: above it
//   are the root folder or one right below it, such as /tmp, the home folder or one above it, or
//   the place where disks are mounted. For a picture in the root folder it is none;
// - the folder for the user's pictures, unless there is none: desktops then name the home folder.
//
// Paths are absolute and in the bytes of the system; only their texts are looked at, no disk is
// asked.
std::vector<std::string> foldersAround(const std::string& picture, const std::string& home,
                                       const std::string& pictures);

}  // namespace pinorama
