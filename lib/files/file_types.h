// How files are named and held while they are open.

#pragma once

#include <cstdint>
#include <string>

// Names an existing item: an absolute path in the raw bytes of the system. A reference made from a
// path names what a symbolic link at its end points to; one made from a parent and a name names the
// link.
struct FSRef {
    std::string path;
};

// An open file. Always above 2, so that 0 can mean none.
using ForkRef = int;

// A file name as counted UTF-16 units; only the first `length` are meaningful.
struct HFSUniStr255 {
    std::uint16_t length;
    char16_t unicode[255];
};

// The older way to name an item: a volume (device number), the node number of the folder, and the
// name in it as a Pascal string of at most 63 bytes.
struct FSSpec {
    std::uint64_t volume;
    std::uint64_t parentNode;
    std::uint8_t name[64];
};
