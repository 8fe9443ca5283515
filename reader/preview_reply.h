// What a client asks about a file for its preview, and what comes back: plain values, because they
// travel between processes.

#pragma once

#include <cstdint>
#include <string>

#include "pictures/pixels/pixel_image.h"

namespace pinorama {

enum class PreviewKind : std::uint16_t {
    picture,          // a preview of the picture in the file
    morePicture,      // the same of more kinds of pictures (makeMorePreview)
    cachedThumbnail,  // the file is a thumbnail from the desktop's cache
};

struct PreviewReply {
    PixelImage image;         // fits into the box that was asked for
    bool wasDecoded = false;  // the picture itself had to be decoded, which takes its time
    // Of a cached thumbnail: which file it shows, and when that was changed last. Empty otherwise.
    std::string uri;
    std::string mtime;
};

}  // namespace pinorama
