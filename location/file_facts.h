// What the program shows of any file, picture or not: its name, its size and its dates. The window
// and the terminal show the same texts, so they are made here.

#pragma once

#include <cstdint>
#include <optional>

#include "base/file_attributes.h"
#include "lib/objects/string.h"
#include "location/file_name.h"

struct fileFacts {
    std::optional<std::uint64_t> size{};  // bytes; nothing unless it is a regular file
    std::uint32_t modified = 0;           // seconds since 1904 on the local clock; 0 is no date
    std::uint32_t created = 0;            // the same
};

// Reads the facts of what is at `path`, at the end of any symbolic links. When there is no such
// item all of them are missing.
fileFacts gpsReadFileFacts(TovStringRef path);

// The same out of attributes that have been read already.
fileFacts gpsMakeFileFacts(const pinorama::FileAttributes& attributes);

// Returns a new text: the size with one decimal and its unit, or "n.a." when there is none.
[[nodiscard]] TovStringRef gpsMakeFileSizeText(const fileFacts& facts);

// Return new texts: a date with its time, in the form of the user's language. A missing date shows
// as the start of 1904.
[[nodiscard]] TovStringRef gpsMakeModifiedText(const fileFacts& facts);
[[nodiscard]] TovStringRef gpsMakeCreatedText(const fileFacts& facts);
