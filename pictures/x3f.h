// Sigma's raw format, as far as it holds metadata: a JPEG picture with Exif data among its
// sections.

#pragma once

#include "pictures/byte_source.h"

namespace pinorama {

// True when `picture` begins as X3F does.
bool isX3f(const ByteBlock& picture);

// Returns the first JPEG picture that the directory at the end of the file lists; an empty block
// when there is none. The older cameras write none.
ByteBlock findX3fJpeg(const ByteBlock& x3f);

}  // namespace pinorama
