// ISO base media files: HEIC, HEIF and AVIF, Canon's CR3, JPEG XL, and the videos MOV and MP4.

#pragma once

#include "pictures/embedded_metadata.h"

namespace pinorama {

// True when `file` begins as such a file does: with a box that names its type, with the signature
// of JPEG XL, or with one of the boxes that older MOV files begin with.
bool isIsoMedia(const ByteBlock& file);

// Finds the metadata: the Exif and XMP items of a HEIF file, the TIFF blocks of a CR3 file, the
// Exif and XMP boxes of JPEG XL, the position of a video, XMP in its box of
// any of them. The `moov` box may lie at the end of the file; what is in front of it is stepped
// over and not read.
EmbeddedMetadata findIsoMetadata(const ByteBlock& file);

}  // namespace pinorama
