// Pieces of metadata that a container holds compressed: XMP in PNG, XMP and Exif in JPEG XL.

#pragma once

#include <cstdint>
#include <vector>

#include "pictures/byte_source.h"

namespace pinorama {

enum class Packing : std::uint8_t { deflate, brotli };

struct PackedPart {
    ByteBlock bytes{};
    Packing packing = Packing::deflate;
};

// Loads the libraries that unpack (zlib and Brotli), as far as this machine has them, so that
// unpacking opens no file later on. Called before a process enters the sandbox; elsewhere they are
// loaded at the first need.
void loadUnpackers();

// The first bytes of what is packed in `part`, at most kMaxXmpLength (xmp_packet.h); as many as can
// be unpacked if it is damaged. Empty without the library, and for a part of more bytes than that.
std::vector<std::uint8_t> unpacked(const PackedPart& part);

}  // namespace pinorama
