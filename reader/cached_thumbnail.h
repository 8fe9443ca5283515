// The thumbnails that programs share in the user's cache folder: PNG pictures that name the file
// that they show in text chunks.

#pragma once

#include <optional>
#include <string>

#include "pictures/byte_source.h"
#include "pictures/pixels/pixel_image.h"

namespace pinorama {

struct CachedThumbnail {
    PixelImage image;
    std::string uri;    // Thumb::URI, empty when it has none
    std::string mtime;  // Thumb::MTime, seconds since 1970 in decimal digits
};

// Reads a PNG picture, scaled down to fit into `box`, with the two texts; nothing for another
// format, a damaged picture, or one larger than any size that thumbnails come in. Source:
// freedesktop.org Thumbnail Managing Standard.
std::optional<CachedThumbnail> readCachedThumbnail(ByteSource& source, PixelSize box);

}  // namespace pinorama
