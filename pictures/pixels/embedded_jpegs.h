// Where a picture file keeps JPEG streams of itself: the thumbnail of a JPEG picture's Exif block,
// and the previews that TIFF-based raw files carry in several sizes.

#pragma once

#include <vector>

#include "pictures/byte_source.h"
#include "pictures/pixels/pixel_image.h"

namespace pinorama {

struct EmbeddedJpegs {
    Orientation orientation = 1;  // of the picture, and so of every stream in it
    PixelSize picture;            // the largest size that a directory states; {0, 0} if none does
    std::vector<ByteBlock> streams;  // unchecked, in the order of the directories
};

// Looks through the first directories of a TIFF block, those that are chained to them and the
// subdirectories of both. Nothing but directories is read, so what is listed may be no JPEG stream.
//
//   tiff   begins with a TIFF header, a maker's own included; anything else gives an empty result.
//
// Source: TIFF 6.0; Exif 2.32, 4.5.4 (thumbnails); TIFF Technical Note 1 (subdirectories); DNG 1.6.
EmbeddedJpegs findEmbeddedJpegs(const ByteBlock& tiff);

}  // namespace pinorama
