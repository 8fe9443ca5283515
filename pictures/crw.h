// Canon's older raw format. It has directories of its own, which know no position and no place
// texts, so that there is nothing to read but what it is.

#pragma once

#include "pictures/byte_source.h"

namespace pinorama {

// True when `picture` begins as CRW does: byte order, length of the header, "HEAPCCDR".
bool isCrw(const ByteBlock& picture);

}  // namespace pinorama
