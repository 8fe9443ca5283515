// Previews of HEIF files, which telephones write as HEIC.

#pragma once

#include <optional>

#include "pictures/byte_source.h"
#include "pictures/pixels/picture_preview.h"
#include "pictures/pixels/pixel_image.h"

namespace pinorama {

// Makes a preview that fits into `box`: of the smallest image in the file that is large enough and
// shows the whole picture, the picture itself included; else of the largest one that can be
// decoded.
//
// JPEG images always can be. Images of HEVC and AV1, and grids of them, can be if this machine has
// a decoder (hevc_image.h, av1_image.h). Nothing when there is no image of these three.
std::optional<Preview> makeHeifPreview(const ByteBlock& file, PixelSize box);

}  // namespace pinorama
