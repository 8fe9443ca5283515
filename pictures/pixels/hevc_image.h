// Images of HEVC, in which telephones code their HEIC pictures. They are decoded by libde265, which
// is loaded if this machine has it, and in this thread alone.

#pragma once

#include <optional>

#include "pictures/pixels/heif_images.h"
#include "pictures/pixels/yuv_image.h"

namespace pinorama {

// Loads the decoder, so that decoding opens no file later on. Called while a program starts. False
// if there is none that is known here: then there are no images of HEVC.
bool loadHevcDecoder();

// Decodes an image. Nothing when the decoder is not loaded or makes no image of the bytes.
//
//   image   of the type hvc1; what is coded beyond the size that it states is left out.
//   quick   leaves the filters out that nobody sees once the image is scaled down.
std::optional<YuvImage> decodeHevc(const HeifImage& image, bool quick);

}  // namespace pinorama
