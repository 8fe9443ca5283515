// Fujifilm's raw format, as far as it holds metadata: a header, and in it the place of a whole JPEG
// picture that carries the Exif data of the raw picture.

#pragma once

#include "pictures/byte_source.h"

namespace pinorama {

// True when `picture` begins as RAF does.
bool isRaf(const ByteBlock& picture);

// Returns the JPEG picture in a RAF picture; an empty block when its place is not in the file.
ByteBlock findRafJpeg(const ByteBlock& raf);

}  // namespace pinorama
