// WebP pictures, as far as they hold metadata.

#pragma once

#include "pictures/embedded_metadata.h"

namespace pinorama {

// True when `picture` begins as WebP does: "RIFF", a length, "WEBP".
bool isWebp(const ByteBlock& picture);

// Finds the chunks EXIF and XMP. They come after the image data, which is stepped over.
// Source: WebP Container Specification (RFC 9649), 2.7.
EmbeddedMetadata findWebpMetadata(const ByteBlock& webp);

}  // namespace pinorama
