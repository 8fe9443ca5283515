// Large JPEG pictures for the benches, and the floor for showing one: libjpeg-turbo alone.

#pragma once

#include <cstdint>
#include <string>

namespace bench {

// A picture of 6000 x 4000 points (24 megapixels) with fine detail, as large as those of cameras,
// with a thumbnail of 160 x 107 on request.
std::string largeJpeg(bool withThumbnail);

// Decodes a JPEG stream in memory at the coarsest scale that still fills `side` pixels on its
// longer side, and drops the pixels. Returns the number of pixels of the whole picture; 0 if it is
// not a JPEG stream.
std::uint64_t decodeReduced(const std::string& jpeg, unsigned side);

}  // namespace bench
