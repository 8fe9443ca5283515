#include "pictures/first_image.h"

#include "pictures/exif_gps.h"
#include "pictures/exif_time.h"
#include "pictures/iptc_record.h"
#include "pictures/photoshop_resources.h"

#include <utility>
#include <vector>

namespace pinorama {
namespace {

constexpr std::uint16_t kXmpTag = 0x02bc;
constexpr std::uint16_t kIptcTag = 0x83bb;
constexpr std::uint16_t kExifTag = 0x8769;
constexpr std::uint16_t kGpsTag = 0x8825;

// Resources that are spread over several segments are put together up to this size.
constexpr std::uint64_t kMaxJoinedBytes = 1 << 20;

void readIptcResource(const ByteBlock& resources, PictureProperties& properties)
{
    readIptcRecord(findPhotoshopResource(resources, kIptcResource), properties);
}

void readPhotoshop(const std::vector<ByteBlock>& pieces, PictureProperties& properties)
{
    if (pieces.size() == 1) {
        readIptcResource(pieces.front(), properties);
        return;
    }
    std::vector<std::uint8_t> joined;
    for (const ByteBlock& piece : pieces) {
        const ByteView bytes = piece.view(0, static_cast<std::size_t>(piece.length()));
        if (joined.size() + bytes.size() > kMaxJoinedBytes) break;
        joined.insert(joined.end(), bytes.begin(), bytes.end());
    }
    MemoryByteSource source(joined);
    readIptcResource(ByteBlock(source), properties);
}
}  // namespace

// Only the first directory is looked at: the others are smaller copies and other images. The GPS
// directory is read also where another pointer shares its offset, as in pictures of Windows phones.
ByteBlock readTiffImage(const TiffBlock& tiff, PictureProperties& properties)
{
    enum { iptc, exif, gps, xmp };
    TiffEntry entries[] = {{kIptcTag}, {kExifTag}, {kGpsTag}, {kXmpTag}};
    tiff.findEntries(tiff.firstDirectory(), entries);
    if (const auto offset = tiff.directoryOf(entries[gps])) {
        readGpsDirectory(tiff, *offset, properties);
    }
    readExifTime(tiff, tiff.directoryOf(entries[exif]), tiff.directoryOf(entries[gps]), properties);
    // What the Photoshop resources of a JPEG picture say comes first.
    if (!properties.hasIptc) readIptcRecord(entries[iptc].value, properties);
    return entries[xmp].value;
}

JpegXmp readJpegImage(const ByteBlock& jpeg, PictureProperties& properties, WithXmp withXmp)
{
    JpegMetadata metadata = findJpegMetadata(jpeg, withXmp);
    if (!metadata.photoshop.empty()) readPhotoshop(metadata.photoshop, properties);
    if (const auto tiff = TiffBlock::open(metadata.exif)) readTiffImage(*tiff, properties);
    return std::move(metadata.xmp);
}

}  // namespace pinorama
