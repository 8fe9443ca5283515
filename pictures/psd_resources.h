// Photoshop documents, as far as they hold metadata.

#pragma once

#include "pictures/embedded_metadata.h"

namespace pinorama {

// True when `picture` begins as a Photoshop document does, a large one (PSB) included.
bool isPsd(const ByteBlock& picture);

// Finds the resources with the IPTC record, the Exif data and the XMP packet.
// Source: Adobe Photoshop File Formats Specification, "File Header" to "Image Resources".
EmbeddedMetadata findPsdMetadata(const ByteBlock& psd);

// Finds the thumbnail, a JPEG stream that shows the whole picture. Its bytes are unchecked. Empty
// if there is none of this coding; the one that Photoshop 4 wrote, with blue and red exchanged, is
// not looked for.
// Source: the same, "Thumbnail resource format".
ByteBlock findPsdThumbnail(const ByteBlock& psd);

}  // namespace pinorama
