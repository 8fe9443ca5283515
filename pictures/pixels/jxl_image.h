// Pictures of JPEG XL. They are decoded by libjxl, which is loaded if this machine has it, and in
// this thread alone.

#pragma once

#include <optional>

#include "pictures/byte_source.h"
#include "pictures/pixels/pixel_image.h"

namespace pinorama {

// Loads the decoder, so that decoding opens no file later on. Called while a program starts. False
// if there is none that is known here.
bool loadJxlDecoder();

// True when `file` begins as JPEG XL does, in a container or without one.
bool isJxl(const ByteBlock& file);

// Decodes the first image of a file so that it fits into `box`, upright and in sRGB. Nothing when
// the decoder is not loaded, when it makes no image of the bytes, of images of more than 40
// megapixels and of files of more than 64 MiB.
std::optional<PixelImage> decodeJxl(const ByteBlock& file, PixelSize box);

}  // namespace pinorama
