// The preview that a raw file carries, found by LibRaw. The picture itself is never developed: that
// takes half a second and a hundred megabytes.

#pragma once

#include <optional>

#include "pictures/byte_source.h"
#include "pictures/pixels/pixel_image.h"

namespace pinorama {

// Reads the embedded preview of a raw file, scaled down to fit into `box` and upright. Of several
// previews the one that LibRaw thinks the best is taken, a JPEG stream or a bitmap; black bars
// around it are cut off.
//
// Nothing when LibRaw does not know the file or the file has no preview that can be decoded.
std::optional<PixelImage> makeRawPreview(ByteSource& source, PixelSize box);

}  // namespace pinorama
