// The ways to read where a picture was taken that are measured against each other.

#pragma once

#include <string>
#include <vector>

namespace bench {

// Reads one picture and drops what it found.
using Read = void (*)(const std::string& path);

struct Reader {
    std::string name;
    Read read;
    bool readsRaw;  // knows more than JPEG
};

// Opening a file, asking for its size, reading its first 64 KiB, closing it: what any reader has to
// do at least. The others are measured in multiples of this.
void readFloor(const std::string& path);

// The floor, the project's reader, and the other libraries that were there when this was built.
std::vector<Reader> readers();

// The names of libraries that were not there.
std::vector<std::string> missingReaders();

}  // namespace bench
