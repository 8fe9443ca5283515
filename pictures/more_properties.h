// Reads more kinds of files than readPictureProperties, and XMP in all of them. This is what a user
// asks for with "Read More Kinds of Files"; without that nothing here is called.

#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "pictures/picture_properties.h"

namespace pinorama {

// Reads the properties of a picture or a video. What kind of file it is is decided by its first
// bytes: everything that readPictureProperties reads, BigTIFF, HEIC, HEIF, AVIF, CR3, JPEG XL, MOV,
// MP4, X3F, PNG, WebP, GIF, PSD, and a file that is XMP itself, which is what a sidecar is.
//
//   language  of the user, see readXmp.
//
// What Exif and IPTC do not say is taken from XMP, and what that does not say either from what a
// video says; `sources` tell which it was. Of a file in boxes, chunks or resources less than
// a megabyte is read, however large it is.
//
// Damaged parts count as absent. Returns nothing when the bytes are none of these files.
std::optional<PictureProperties> readMoreProperties(ByteSource& source, std::string_view language);

// The same with the language of a user who stays the same.
std::function<std::optional<PictureProperties>(ByteSource& source)> moreReaderFor(
    std::string language);

}  // namespace pinorama
