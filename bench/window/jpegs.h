// Large JPEG pictures for the benches, and the floor for showing one: libjpeg-turbo alone.

#pragma once

#include <cstdint>
#include <string>

namespace bench {

// A picture of 6000 x 4000 points (24 megapixels) with fine detail, as large as cameras write them,
// with a thumbnail of 160 x 107 when asked for.
std::string largeJpeg(bool withThumbnail);

// Decodes a JPEG stream in memory at the coarsest scale that still fills `side` pixels on its
// longer side, and drops the pixels. Returns how many pixels the whole picture has; 0 when it is no
// JPEG stream.
std::uint64_t decodeReduced(const std::string& jpeg, unsigned side);

}  // namespace bench
