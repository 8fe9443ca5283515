// Items that have a picture's name but are no picture, or cannot be opened normally.

#pragma once

#include "tests/support/environment.h"

#include <cstdint>
#include <string>
#include <vector>

namespace test {

struct HostileItem {
    const char* what;     // for messages
    std::string path;     // ends in ".jpg" or ".nef"
    const char* error;    // why nothing is there, in the system's words; null when an item is
    std::int32_t status;  // of the path: 0 when an item is there
    bool isRegular;       // a regular file, with a size
};

// Creates them in a folder: a pipe, a device, a socket, a folder, dangling links, a file of 8 TiB,
// names that are too long or not UTF-8, and the path of an item that does not exist.
std::vector<HostileItem> hostileItems(const TemporaryFolder& folder);

// A file with a raw picture's name that is as large as its file system allows, at most 8 TiB.
std::string hugeFile(const TemporaryFolder& folder);

// A name of 255 bytes, the maximum, with the extension ".jpg".
std::string longestName();

}  // namespace test
