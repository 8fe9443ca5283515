#include "pictures/psd_resources.h"

#include "pictures/byte_order.h"
#include "pictures/photoshop_resources.h"

namespace pinorama {
namespace {
constexpr std::uint8_t kName[] = {'8', 'B', 'P', 'S', 0};
constexpr std::uint64_t kHeaderSize = 26;
constexpr std::uint16_t kExifResource = 0x0422;
constexpr std::uint16_t kXmpResource = 0x0424;

// The longest part of the file that is looked through; thumbnails and paths are among it.
constexpr std::uint64_t kMaxResources = 384 * 1024;
}  // namespace

bool isPsd(const ByteBlock& picture)
{
    return picture.beginsWith(kName);
}

EmbeddedMetadata findPsdMetadata(const ByteBlock& psd)
{
    EmbeddedMetadata metadata;
    // Colours and resources, each after its length.
    const ByteView coloursLength = psd.view(kHeaderSize, 4);
    if (coloursLength.empty()) return metadata;
    const std::uint64_t start = kHeaderSize + 4 + bigEndian32(coloursLength.data());
    const ByteView length = psd.view(start, 4);
    if (length.empty()) return metadata;
    const std::uint64_t end = bigEndian32(length.data());
    const ByteBlock resources = psd.part(start + 4, end).part(0, kMaxResources);
    enum { iptc, exif, xmp };
    PhotoshopResource wanted[] = {{kIptcResource}, {kExifResource}, {kXmpResource}};
    findPhotoshopResources(resources, wanted);
    metadata.iptc = wanted[iptc].data;
    metadata.exif = tiffInExifPart(wanted[exif].data);
    metadata.xmp = wanted[xmp].data;
    return metadata;
}

}  // namespace pinorama
