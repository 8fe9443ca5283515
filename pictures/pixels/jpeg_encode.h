// Small pictures as JPEG streams, for documents that carry them along.

#pragma once

#include <string>

#include "pictures/pixels/pixel_image.h"

namespace pinorama {

// Encodes a picture as a baseline JPEG stream without metadata.
//
//   quality  per cent, 1 to 100.
//
// Empty for a picture without pixels, and if memory runs out. What is transparent becomes black.
std::string encodeJpeg(const PixelImage& image, int quality);

}  // namespace pinorama
