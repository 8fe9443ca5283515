// Which files count as camera pictures: JPEG and camera raw formats, by the extension of the name.

#pragma once

#include "lib/objects/string.h"

#include <string>
#include <vector>

// True when the name that `path` ends in has one of the accepted extensions, in upper or lower
// case.
//
// The extension is what follows the last dot of the last component; a dot that begins the name
// begins no extension, so ".jpg" has none. Slashes at the end of a path do not count: a folder is
// judged by its name like a file. TIFF, PNG, HEIC and every other type are refused, and so is null.
bool gpsIsAcceptedPath(TovStringRef path);

namespace pinorama {

// The same for the further kinds of files that are read for whoever asks for them: pictures of
// telephones, TIFF, PNG and others, more raw formats, videos.
bool isPathOfMoreKinds(TovStringRef path);

// True for those of them that are videos.
bool isPathOfVideo(TovStringRef path);

// The extensions of the camera pictures, and with `alsoMore` of the further kinds: ASCII in lower
// case, without the dot.
std::vector<std::string> acceptedExtensions(bool alsoMore);

}  // namespace pinorama
