// The resource blocks that Photoshop, and everybody since, keeps in the APP13 segments of a JPEG
// picture.

#pragma once

#include <cstdint>

#include "pictures/byte_source.h"

namespace pinorama {

// The resource that holds the IPTC-IIM record.
constexpr std::uint16_t kIptcResource = 0x0404;

// Returns the data of the first resource `number` in `resources`, cut at their end; an empty block
// when there is none. The search ends at the first bytes that are no resource.
// Source: Adobe Photoshop File Formats Specification, "Image Resource Blocks".
ByteBlock findPhotoshopResource(const ByteBlock& resources, std::uint16_t number);

}  // namespace pinorama
