#include "pictures/photoshop_resources.h"

#include "pictures/byte_order.h"

#include <cstring>

namespace pinorama {
namespace {
// Photoshop itself, and the signatures that other Adobe programs and plug-ins write.
bool isSignature(const std::uint8_t* bytes)
{
    for (const char* known : {"8BIM", "PHUT", "AgHg", "DCSR", "MeSa"}) {
        if (std::memcmp(bytes, known, 4) == 0) return true;
    }
    return false;
}

std::uint64_t roundedUpToEven(std::uint64_t size)
{
    return size + size % 2;
}
}  // namespace

void findPhotoshopResources(const ByteBlock& resources, std::span<PhotoshopResource> wanted)
{
    std::uint64_t position = 0;
    std::size_t left = wanted.size();
    while (left != 0) {
        // Signature (4), number (2), length of the name (1).
        const ByteView header = resources.view(position, 7);
        if (header.empty() || !isSignature(header.data())) return;
        const bool isOwn = std::memcmp(header.data(), "8BIM", 4) == 0;
        const std::uint16_t number = bigEndian16(&header[4]);
        const std::uint64_t nameSize = roundedUpToEven(std::uint64_t{header[6]} + 1);

        const ByteView sizeBytes = resources.view(position + 6 + nameSize, 4);
        if (sizeBytes.empty()) return;
        const std::uint64_t size = bigEndian32(sizeBytes.data());
        const std::uint64_t start = position + 6 + nameSize + 4;
        for (PhotoshopResource& resource : wanted) {
            if (!isOwn || resource.number != number || resource.isFound) continue;
            resource.data = resources.part(start, size);
            resource.isFound = true;
            --left;
        }
        position = start + roundedUpToEven(size);
    }
}

ByteBlock findPhotoshopResource(const ByteBlock& resources, std::uint16_t number)
{
    PhotoshopResource wanted[] = {{number}};
    findPhotoshopResources(resources, wanted);
    return wanted[0].data;
}

}  // namespace pinorama
