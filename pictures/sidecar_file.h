// Sidecars: XMP in a file beside the picture, where programs write what they do not write into raw
// pictures.

#pragma once

#include <string>

#include "pictures/picture_file.h"

namespace pinorama {

// Opens the sidecar of the picture at `path`: "IMG.CR2.xmp" beside "IMG.CR2", else "IMG.xmp". The
// ending is found in upper and lower case and in any mixture. Not open if there is no such file, or
// if `path` has no extension to replace and no file of the longer name.
PictureFile openSidecar(const std::string& path);

}  // namespace pinorama
