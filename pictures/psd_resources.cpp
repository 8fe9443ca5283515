#include "pictures/psd_resources.h"

#include "pictures/byte_order.h"
#include "pictures/photoshop_resources.h"

namespace pinorama {
namespace {
constexpr std::uint8_t kName[] = {'8', 'B', 'P', 'S', 0};
constexpr std::uint64_t kHeaderSize = 26;
constexpr std::uint16_t kExifResource = 0x0422;
constexpr std::uint16_t kXmpResource = 0x0424;
constexpr std::uint16_t kThumbnailResource = 0x040c;

constexpr std::uint64_t kThumbnailHeaderSize = 28;
constexpr std::uint32_t kJpegThumbnail = 1;  // the first number of that header

// The longest part of the file that is looked through; thumbnails and paths are among it.
constexpr std::uint64_t kMaxResources = 384 * 1024;

// Colours and resources come after the header, each after its length.
ByteBlock resourcesOf(const ByteBlock& psd)
{
    const ByteView coloursLength = psd.view(kHeaderSize, 4);
    if (coloursLength.empty()) return {};
    const std::uint64_t start = kHeaderSize + 4 + bigEndian32(coloursLength.data());
    const ByteView length = psd.view(start, 4);
    if (length.empty()) return {};
    const std::uint64_t end = bigEndian32(length.data());
    return psd.part(start + 4, end).part(0, kMaxResources);
}
}  // namespace

bool isPsd(const ByteBlock& picture)
{
    return picture.beginsWith(kName);
}

EmbeddedMetadata findPsdMetadata(const ByteBlock& psd)
{
    EmbeddedMetadata metadata;
    enum { iptc, exif, xmp };
    PhotoshopResource wanted[] = {{kIptcResource}, {kExifResource}, {kXmpResource}};
    findPhotoshopResources(resourcesOf(psd), wanted);
    metadata.iptc = wanted[iptc].data;
    metadata.exif = tiffInExifPart(wanted[exif].data);
    metadata.xmp = wanted[xmp].data;
    return metadata;
}

ByteBlock findPsdThumbnail(const ByteBlock& psd)
{
    const ByteBlock thumbnail = findPhotoshopResource(resourcesOf(psd), kThumbnailResource);
    const ByteView coding = thumbnail.view(0, 4);
    if (coding.empty() || bigEndian32(coding.data()) != kJpegThumbnail) return {};
    return thumbnail.from(kThumbnailHeaderSize);
}

}  // namespace pinorama
