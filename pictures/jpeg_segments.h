// The segments of a JPEG picture that carry metadata.

#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "pictures/byte_source.h"

namespace pinorama {

// XMP as JPEG holds it. Whatever there is none of is empty.
struct JpegXmp {
    ByteBlock packet{};  // of the first segment (APP1) that has one
    // The first kMaxPieces segments (APP1) with pieces of a further document, without their name.
    std::vector<ByteBlock> pieces{};

    static constexpr std::size_t kMaxPieces = 64;
};

// What stands in front of the picture data.
struct JpegMetadata {
    // The TIFF block of the first Exif segment (APP1) that begins with a TIFF header; else empty.
    ByteBlock exif;
    // The pieces of the Photoshop resources (APP13), in order: 64 KiB is the end of a segment but
    // not of the resources.
    std::vector<ByteBlock> photoshop;
    JpegXmp xmp{};  // where it is asked for
};

enum class WithXmp : bool { no, yes };

// True when `picture` begins as JPEG does.
bool isJpeg(const ByteBlock& picture);

// Looks through the segments of the first image in `jpeg` up to its picture data. As decoders do,
// it steps over fill bytes and a little foreign matter between segments; a segment that claims to
// go on after the end is cut there.
// Source: ITU-T T.81, Annex B; Exif 2.32, 4.7; XMP Specification, Part 3, 1.1.3.
JpegMetadata findJpegMetadata(const ByteBlock& jpeg, WithXmp withXmp = WithXmp::no);

// The ICC profile of the first image in `jpeg`, which lies in pieces in its segments (APP2). Empty
// when there is none, a piece is missing, or it is longer than `maxLength` bytes.
// Source: ICC.1:2022, B.4.
std::vector<std::uint8_t> findJpegProfile(const ByteBlock& jpeg, std::size_t maxLength);

}  // namespace pinorama
