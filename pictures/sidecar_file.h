// Sidecars: XMP in a file beside the picture, where programs write what they do not write into raw
// pictures.

#pragma once

#include <string>
#include <vector>

#include "pictures/picture_file.h"

namespace pinorama {

// The paths at which the sidecar of the picture at `path` may be, in the order in which they count:
// "IMG.CR2.xmp" beside "IMG.CR2", then "IMG.xmp", each with its ending in lower and upper case and
// in any mixture. Of a path without an extension to replace only the longer names.
std::vector<std::string> sidecarPaths(const std::string& path);

// Opens the sidecar of the picture at `path`, the first of them that is a regular file. Not open if
// there is none.
PictureFile openSidecar(const std::string& path);

}  // namespace pinorama
