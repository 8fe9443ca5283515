// The compared ways to read where a picture was taken.

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

// The least that any reader must do: open a file, get its size, read its first 64 KiB, close it.
// The others are measured in multiples of this.
void readFloor(const std::string& path);

// The floor, our reader, and the other libraries that were installed for the build.
std::vector<Reader> readers();

// The names of libraries that were not installed.
std::vector<std::string> missingReaders();

}  // namespace bench
