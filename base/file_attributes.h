// What the system knows about a file: its kind, its size and its dates.

#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace pinorama {

struct FileAttributes {
    bool isRegular;                       // neither folder nor device, pipe or socket
    std::uint64_t size;                   // bytes; meaningful for regular files
    std::int64_t modified;                // whole seconds since 1970 UTC, rounded down
    std::optional<std::int64_t> created;  // the same; some file systems keep none
    std::uint32_t type = 0;               // the bits S_IFMT of its mode, as stat(2) gives them

    friend bool operator==(const FileAttributes&, const FileAttributes&) = default;
};

// The attributes of what is at `path`, at the end of any symbolic links. Nothing when there is no
// such item or it cannot be looked at; errno says why.
std::optional<FileAttributes> attributesOf(const std::string& path);

// The same of what is itself at `path`: of a symbolic link those of the link.
std::optional<FileAttributes> attributesOfItself(const std::string& path);

// The attributes of what is open under a descriptor.
std::optional<FileAttributes> attributesOf(int descriptor);

}  // namespace pinorama
