// Images of AV1, in which AVIF pictures are coded. They are decoded by dav1d, which is loaded if
// this machine has it, and in this thread alone.

#pragma once

#include <optional>

#include "pictures/pixels/heif_images.h"
#include "pictures/pixels/yuv_image.h"

namespace pinorama {

// Loads the decoder, so that decoding opens no file later on. Called while a program starts. False
// if there is none that is known here: then there are no images of AV1.
bool loadAv1Decoder();

// Decodes an image. Nothing when the decoder is not loaded or makes no image of the bytes, and of
// images of more than 64 megapixels.
//
//   image  of the type av01.
std::optional<YuvImage> decodeAv1(const HeifImage& image);

}  // namespace pinorama
