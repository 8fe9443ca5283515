// Pictures of Qt into pixels.

#pragma once

#include "pictures/pixels/pixel_image.h"

class QImage;

namespace pinorama {

// The image scaled down to fit into `box`, its colours converted to sRGB where it states a colour
// space that ColourProfile knows; {0, 0} for a null image or an empty box.
PixelImage scaledPixels(const QImage& image, PixelSize box);

}  // namespace pinorama
