// Pictures that are neither JPEG nor raw, decoded by Qt's image plug-ins.

#pragma once

#include <optional>

#include "pictures/byte_source.h"
#include "pictures/pixels/pixel_image.h"

namespace pinorama {

// Loads every plug-in that decodeOtherPicture uses, so that decoding opens no file later on.
void loadPicturePlugins();

// Decodes the first image of the file, whatever its name, scaled down to fit into `box` and
// upright. Nothing when no plug-in of the kinds used here knows it, when it is damaged, or when it
// would need more than 256 MB.
//
// Vector pictures are not decoded: they can name other files and take any time they like.
std::optional<PixelImage> decodeOtherPicture(ByteSource& source, PixelSize box);

}  // namespace pinorama
