// JPEG streams decoded for a preview: at a reduced scale, no more of it than the preview needs, and
// in memory and time bounded by what is asked for rather than by what the stream claims to hold.

#pragma once

#include <optional>

#include "pictures/byte_source.h"
#include "pictures/pixels/pixel_image.h"

namespace pinorama {

// The size in pixels that the headers of a JPEG stream state; {0, 0} when it cannot be decoded.
PixelSize jpegSize(const ByteBlock& jpeg);

// Decodes a JPEG stream so that it fits into `box` (as stored; the caller turns box and
// picture by the orientation). Colours, gray, CMYK and YCCK (Adobe's inverted form and the plain
// one), baseline and progressive; the pixels are opaque. Their colours are those of the ICC profile
// in the stream, converted to sRGB; without one they are taken as sRGB.
//
//   whole  the stream that this one is a thumbnail of, whose profile counts if this one has none;
//          empty if there is no such stream.
//
// Nothing when the bytes are no JPEG stream that can be decoded, or when it asks for more memory or
// passes than a preview is worth. A stream that is cut off gives its beginning, the rest gray.
std::optional<PixelImage> decodeJpeg(const ByteBlock& jpeg, PixelSize box,
                                     const ByteBlock& whole = {});

}  // namespace pinorama
