// Plain helpers for files that the toolkit is not needed for: a new text file, and the text of the
// request that appends to a file's comment.

#pragma once

#include <cstdint>

#include "lib/files/file_types.h"
#include "lib/objects/string.h"

// Makes an empty file at `path` and opens it for reading and writing. An existing file is emptied,
// other than by feCreateAndOpenTextFile, which keeps it.
//
//   outForkRef  receives the open fork, which the caller closes with feCloseFork; 0 on failure.
//
// Returns 0, -68 for whatever keeps the file from being made, or the status of opening it.
std::int16_t cuCreateAndOpenTextFile(TovStringRef path, ForkRef* outForkRef);

// The text of the script by which a comment is appended: path and comment stand in it as they are,
// quotes and backslashes too; null stands as "(null)". Returns a new text, null when memory runs
// out.
[[nodiscard]] TovStringRef cuMakeFinderCommentScript(TovStringRef path, TovStringRef comment);
