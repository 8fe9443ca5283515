// XMP: metadata as XML, within pictures of every kind and in files of its own beside them.

#pragma once

#include <optional>
#include <string_view>

#include "pictures/picture_properties.h"

namespace pinorama {

// The longest packet that is read, in bytes; of a longer one only what stands before is found.
constexpr std::uint64_t kMaxXmpLength = 256 * 1024;

// Reads the position (exif:GPSLatitude and its kin), the place texts (photoshop:City, State and
// Country, else those of Iptc4xmpExt:LocationCreated) and the caption (dc:description) of a packet
// in UTF-8 or UTF-16. All of them come from ValueSource::xmp.
//
//   language  of the user, such as "de" or "de_CH.UTF-8": of captions in several languages the
//             default one counts, else that in the user's language, else the first.
//
// A coordinate is written "48,51.504N", "48,51,30N", or as plain degrees whose sign or letter
// (exif:GPSLatitudeRef) says the hemisphere. Malformed values count as absent, and so do
// coordinates beyond 90 and 180 degrees. Blank texts do so, too.
//
// Returns nothing when the bytes are no XMP. A packet that is malformed from some place on has the
// values that stand before it.
// Source: XMP Specification, Part 1, chapter 7 and Part 2, chapter 3; IPTC Photo Metadata 2023.1.
std::optional<PictureProperties> readXmp(const ByteBlock& packet, std::string_view language);

}  // namespace pinorama
