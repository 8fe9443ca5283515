// Photoshop documents, as far as they hold metadata.

#pragma once

#include "pictures/embedded_metadata.h"

namespace pinorama {

// True when `picture` begins as a Photoshop document does, a large one (PSB) included.
bool isPsd(const ByteBlock& picture);

// Finds the resources with the IPTC record, the Exif data and the XMP packet.
// Source: Adobe Photoshop File Formats Specification, "File Header" to "Image Resources".
EmbeddedMetadata findPsdMetadata(const ByteBlock& psd);

}  // namespace pinorama
