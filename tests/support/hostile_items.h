// Items with a picture's name that are no picture, or hard to get at.

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

// Makes them in a folder: a pipe, a device, a socket, a folder, links that lead nowhere, a file of
// 8 TiB, names that are too long or no UTF-8, and what is not there at all.
std::vector<HostileItem> hostileItems(const TemporaryFolder& folder);

// A file with a raw picture's name that is as large as its file system allows, at most 8 TiB.
std::string hugeFile(const TemporaryFolder& folder);

// A name of 255 bytes, the longest, with the ending ".jpg".
std::string longestName();

}  // namespace test
