// The pieces of metadata that a container holds, still as bytes.

#pragma once

#include <optional>

#include "pictures/byte_source.h"
#include "pictures/packed_part.h"

namespace pinorama {

// A position as videos state it.
struct StatedPlace {
    double latitude = 0.0;  // decimal degrees, negative in the south; so is longitude in the west
    double longitude = 0.0;
    std::optional<double> altitude{};  // metres, negative below sea level

    friend bool operator==(const StatedPlace&, const StatedPlace&) = default;
};

// Whatever a container does not have is empty.
struct EmbeddedMetadata {
    ByteBlock exif;                      // a TIFF block
    ByteBlock gps;                       // a TIFF block whose first directory is that of the GPS
    ByteBlock iptc;                      // an IPTC-IIM record
    ByteBlock xmp;                       // an XMP packet, perhaps with something after it
    PackedPart packedExif{};             // an Exif part as JPEG XL has it: with an offset in front
    PackedPart packedXmp{};              // looked at where there is no XMP that is not compressed
    std::optional<StatedPlace> place{};  // outside of the standards for pictures
};

// The TIFF block in an Exif part: `part` itself, or what follows the letters "Exif" and two bytes
// in it. Empty when there is none.
ByteBlock tiffInExifPart(const ByteBlock& part);

// The same of a part that begins with the offset of the TIFF header, as in JPEG XL.
ByteBlock tiffInOffsetExif(const ByteBlock& part);

}  // namespace pinorama
