// PNG pictures, as far as they hold metadata.

#pragma once

#include "pictures/embedded_metadata.h"

namespace pinorama {

// True when `picture` begins as PNG does.
bool isPng(const ByteBlock& picture);

// Finds the chunk eXIf and the XMP packet in an iTXt chunk that is not compressed. Pictures with so
// much image data in front of them that finding them would mean reading a good part of the file
// have none.
// Source: PNG Specification, Third Edition, 11.3; XMP Specification, Part 3, 1.1.5.
EmbeddedMetadata findPngMetadata(const ByteBlock& png);

}  // namespace pinorama
