// The resource blocks that Photoshop, and everybody since, keeps in the APP13 segments of a JPEG
// picture.

#pragma once

#include <cstdint>
#include <span>

#include "pictures/byte_source.h"

namespace pinorama {

// The resource that holds the IPTC-IIM record.
constexpr std::uint16_t kIptcResource = 0x0404;

struct PhotoshopResource {
    std::uint16_t number;
    ByteBlock data{};  // cut at the end of the resources; empty when there is no such one
    bool isFound = false;
};

// Looks the `wanted` resources up; the first of each number counts. The search ends when all are
// found, and at the first bytes that are no resource.
// Source: Adobe Photoshop File Formats Specification, "Image Resource Blocks".
void findPhotoshopResources(const ByteBlock& resources, std::span<PhotoshopResource> wanted);

// Returns the data of the first resource `number` in `resources`, cut at their end; an empty block
// when there is none.
ByteBlock findPhotoshopResource(const ByteBlock& resources, std::uint16_t number);

}  // namespace pinorama
