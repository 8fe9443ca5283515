// The JPEG streams of Canon's CR3 files, which are boxes like those of a video.

#pragma once

#include "pictures/pixels/embedded_jpegs.h"

namespace pinorama {

// Finds the preview (PRVW), the thumbnail (THMB) and the orientation. Of any other file there are
// no streams.
EmbeddedJpegs findCr3Jpegs(const ByteBlock& file);

}  // namespace pinorama
