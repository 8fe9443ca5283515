// XMP of a JPEG picture that is too long for one segment. The packet then has the properties that
// most programs look for, and a second document with the others follows in segments of its own.

#pragma once

#include <cstdint>
#include <vector>

#include "pictures/byte_source.h"
#include "pictures/jpeg_segments.h"

namespace pinorama {

// Returns the document that the pieces of `xmp` make together, at most its first kMaxXmpLength
// bytes (xmp_packet.h); of a document with a gap, what stands before it. Pieces count in the order
// of their offsets, wherever they stand in the picture; where two overlap, the one that begins
// first counts.
//
// Only pieces of the document that the packet names (xmpNote:HasExtendedXMP) are taken. Empty when
// it names none, and when the piece at its start is missing.
// Source: XMP Specification, Part 3, 1.1.3.1.
std::vector<std::uint8_t> extendedXmp(const JpegXmp& xmp);

}  // namespace pinorama
