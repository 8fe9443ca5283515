// Plain helpers for files that the toolkit is not needed for: a new text file, and the text of the
// request that appends to a file's comment.

#pragma once

#include "platform/objects/string.h"

// The text of the script by which a comment is appended: path and comment stand in it as they are,
// quotes and backslashes too; null stands as "(null)". Returns a new text, null when memory runs
// out.
[[nodiscard]] TovStringRef cuMakeFinderCommentScript(TovStringRef path, TovStringRef comment);
