// The name that a path shows.

#pragma once

#include "lib/objects/string.h"

// Returns a new text: the last component of a path, without the slashes at its end (file managers
// write them after folders). "/" for a path of nothing but slashes, empty for an empty one, null
// for null and when memory runs out.
[[nodiscard]] TovStringRef gpsCopyFileName(TovStringRef path);
