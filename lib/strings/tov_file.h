// Whole texts out of files and into files.

#pragma once

#include <cstdint>

#include "lib/objects/string.h"

constexpr std::uint16_t kTextFileUTF8 = 12;  // the one encoding that a text file is written in

// Returns a new text of the whole file, decoded as TovStringFromUTF8 does: a byte-order mark stays
// as the first character.
//
//   path  the bytes of the path, NUL-terminated.
//
// Null for null, when the file cannot be read from first to last, and if memory runs out.
[[nodiscard]] TovStringRef TovStringFromFile(const char* path);

// Writes the UTF-8 form of `string`, as TovStringCopyToUTF8 has it, over the beginning of the file
// at `path`, which is created when it is missing. Nothing is cut off: an existing file that is
// longer keeps its end.
//
//   encoding  kTextFileUTF8; with any other value no byte is written, which is no failure.
//
// Returns 0, -108 if memory runs out, -192 when not everything could be written, or the status of
// lib/files with which the file could not be opened.
std::int16_t TovStringWriteToFile(TovStringRef string, TovStringRef path, std::uint16_t encoding);
