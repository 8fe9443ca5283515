#include "pictures/more_properties.h"

#include "pictures/crw.h"
#include "pictures/embedded_metadata.h"
#include "pictures/exif_gps.h"
#include "pictures/extended_xmp.h"
#include "pictures/first_image.h"
#include "pictures/gif_blocks.h"
#include "pictures/iptc_record.h"
#include "pictures/iso_media.h"
#include "pictures/merged_properties.h"
#include "pictures/mrw.h"
#include "pictures/png_chunks.h"
#include "pictures/psd_resources.h"
#include "pictures/raf.h"
#include "pictures/webp_chunks.h"
#include "pictures/x3f.h"
#include "pictures/xmp_packet.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <memory>
#include <utility>
#include <vector>

namespace pinorama {
namespace {

// The containers that do nothing but hold the pieces.
constexpr struct {
    bool (*isOne)(const ByteBlock& file);
    EmbeddedMetadata (*find)(const ByteBlock& file);
} kContainers[] = {
    {isIsoMedia, findIsoMetadata}, {isPng, findPngMetadata}, {isWebp, findWebpMetadata},
    {isGif, findGifMetadata},      {isPsd, findPsdMetadata},
};

PictureProperties propertiesOfPlace(const StatedPlace& place)
{
    PictureProperties properties;
    properties.latitude = std::abs(place.latitude);
    properties.latitudeReference = place.latitude < 0.0 ? u"S" : u"N";
    properties.longitude = std::abs(place.longitude);
    properties.longitudeReference = place.longitude < 0.0 ? u"W" : u"E";
    if (place.altitude) {
        properties.altitude = std::abs(*place.altitude);
        properties.altitudeReference = *place.altitude < 0.0 ? 1 : 0;
    }
    return properties;
}

struct UnpackedPart {
    explicit UnpackedPart(std::vector<std::uint8_t> content) : bytes(std::move(content)) {}

    const std::vector<std::uint8_t> bytes;
    MemoryByteSource source{bytes};
};

// What has been read of a file, and where its XMP is.
struct Reading {
    PictureProperties properties{};
    ByteBlock xmp{};
    ByteBlock furtherXmp{};  // what it does not say
    std::optional<StatedPlace> place{};
    std::vector<std::unique_ptr<UnpackedPart>> unpackedParts{};  // that blocks are parts of

    ByteBlock keep(std::vector<std::uint8_t> bytes)
    {
        if (bytes.empty()) return {};
        unpackedParts.push_back(std::make_unique<UnpackedPart>(std::move(bytes)));
        return ByteBlock(unpackedParts.back()->source);
    }
    // What is packed in the part; empty if nothing is.
    ByteBlock unpack(const PackedPart& part)
    {
        return part.bytes.isEmpty() ? ByteBlock() : keep(unpacked(part));
    }

    void takeTiff(const ByteBlock& block)
    {
        if (const auto tiff = TiffBlock::open(block)) xmp = readTiffImage(*tiff, properties);
    }
    void takeJpeg(const ByteBlock& block)
    {
        if (!isJpeg(block)) return;
        const JpegXmp found = readJpegImage(block, properties, WithXmp::yes);
        xmp = found.packet;
        furtherXmp = keep(extendedXmp(found));
    }
    void take(const EmbeddedMetadata& metadata)
    {
        readIptcRecord(metadata.iptc, properties);
        takeTiff(metadata.exif.isEmpty() ? tiffInOffsetExif(unpack(metadata.packedExif))
                                         : metadata.exif);
        const auto gps = TiffBlock::open(metadata.gps);
        if (gps) readGpsDirectory(*gps, gps->firstDirectory(), properties);
        if (!metadata.xmp.isEmpty()) xmp = metadata.xmp;
        if (xmp.isEmpty()) xmp = unpack(metadata.packedXmp);
        place = metadata.place;
    }
};

// True for what a document of XML can begin with: a tag, a byte-order mark, a zero byte of UTF-16,
// blanks. Of any other file nothing more is read.
bool mayBeXml(const ByteBlock& file)
{
    static constexpr std::uint8_t kFirst[] = {'<', 0xef, 0xfe, 0xff, 0, ' ', '\t', '\r', '\n'};
    const ByteView start = file.view(0, 1);
    return !start.empty() &&
           std::find(std::begin(kFirst), std::end(kFirst), start[0]) != std::end(kFirst);
}

std::optional<Reading> readFile(const ByteBlock& file)
{
    Reading reading;
    for (const auto& container : kContainers) {
        if (!container.isOne(file)) continue;
        reading.take(container.find(file));
        return reading;
    }
    if (isJpeg(file)) {
        reading.takeJpeg(file);
    } else if (isRaf(file)) {
        reading.takeJpeg(findRafJpeg(file));
    } else if (isX3f(file)) {
        reading.takeJpeg(findX3fJpeg(file));
    } else if (isMrw(file)) {
        reading.takeTiff(findMrwTiff(file));
    } else if (TiffBlock::open(file)) {
        reading.takeTiff(file);
    } else if (const auto bigTiff = TiffBlock::openBig(file)) {
        reading.xmp = readTiffImage(*bigTiff, reading.properties);
    } else if (!isCrw(file)) {
        return std::nullopt;
    }
    return reading;
}
}  // namespace

std::optional<PictureProperties> readMoreProperties(ByteSource& source, std::string_view language)
{
    const ByteBlock file(source);
    std::optional<Reading> reading = readFile(file);
    if (!reading) return mayBeXml(file) ? readXmp(file, language) : std::nullopt;
    PictureProperties& properties = reading->properties;
    for (const ByteBlock& document : {reading->xmp, reading->furtherXmp}) {
        if (document.isEmpty()) continue;
        if (const auto xmp = readXmp(document, language)) {
            addMissing(properties, *xmp, ValueSource::xmp);
        }
    }
    if (reading->place) {
        addMissing(properties, propertiesOfPlace(*reading->place), ValueSource::quickTime);
    }
    return std::optional<PictureProperties>(std::move(properties));
}

std::function<std::optional<PictureProperties>(ByteSource& source)> moreReaderFor(
    std::string language)
{
    return [language = std::move(language)](ByteSource& source) {
        return readMoreProperties(source, language);
    };
}

}  // namespace pinorama
