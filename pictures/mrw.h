// Minolta's raw format, as far as it holds metadata: a chain of named blocks, one of which holds a
// TIFF block with the Exif data.

#pragma once

#include "pictures/byte_source.h"

namespace pinorama {

// True when `picture` begins as MRW does.
bool isMrw(const ByteBlock& picture);

// Returns the TIFF block of a MRW picture; an empty block when there is none.
ByteBlock findMrwTiff(const ByteBlock& mrw);

}  // namespace pinorama
