// GIF pictures, as far as they hold metadata, which is XMP.

#pragma once

#include "pictures/embedded_metadata.h"

namespace pinorama {

// True when `picture` begins as GIF does.
bool isGif(const ByteBlock& picture);

// Finds the XMP packet, which an application extension holds in one piece. Programs write it in
// front of the images; after much image data it is not looked for.
// Source: GIF89a Specification; XMP Specification, Part 3, 1.1.2.
EmbeddedMetadata findGifMetadata(const ByteBlock& gif);

}  // namespace pinorama
