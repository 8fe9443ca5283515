// A small picture of a picture file, made from its bytes as cheaply as they allow.

#pragma once

#include <cstdint>
#include <optional>

#include "pictures/byte_source.h"
#include "pictures/pixels/pixel_image.h"

namespace pinorama {

struct Preview {
    PixelImage image;         // upright
    bool wasDecoded = false;  // the picture itself had to be decoded, which takes its time
};

// Makes the preview of a JPEG picture or of a camera's raw file. It fits into maxWidth x maxHeight
// pixels with the picture's aspect and is never larger than what the file holds.
//
// A JPEG picture's own thumbnail is taken when it is large enough and has the picture's aspect;
// otherwise the picture is decoded at a reduced scale. Of a raw file's previews the smallest that
// is large enough is taken; a raw picture is never developed. The file's orientation is applied to
// all of them.
//
// Nothing when the bytes are no such picture or nothing in it can be decoded. What kind of file it
// is is decided by its first bytes.
std::optional<Preview> makePreview(ByteSource& source, std::int32_t maxWidth,
                                   std::int32_t maxHeight);

// The same of more kinds of pictures: those above, HEIF as makeHeifPreview has it (heif_preview.h),
// the JPEG pictures in CR3, JPEG XL if this machine has a decoder (jxl_image.h), and the thumbnails
// of Photoshop documents. Where HEIF and JPEG XL cannot be decoded their Exif thumbnail is taken.
// Of videos there is none.
std::optional<Preview> makeMorePreview(ByteSource& source, std::int32_t maxWidth,
                                       std::int32_t maxHeight);

}  // namespace pinorama
