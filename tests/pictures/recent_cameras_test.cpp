// Files as recent cameras write them, built from the published descriptions, because no such file
// with a place was to be had: they stand in for the real ones and prove no more than that.

#include "pictures/more_properties.h"
#include "tests/support/byte_views.h"
#include "tests/support/container_builder.h"
#include "tests/support/picture_builder.h"

#include <gtest/gtest.h>

using namespace pinorama;

using test::big16;
using test::big32;
using test::isoBox;
using test::isoFullBox;
using namespace std::string_literals;

namespace {
const test::PictureFields kFields{.lat = 48.5, .latRef = "N", .lon = 2.25, .lonRef = "E"};

void expectPlace(const std::optional<PictureProperties>& properties, ValueSource source)
{
    ASSERT_TRUE(properties);
    EXPECT_EQ(properties->latitude, 48.5);
    EXPECT_EQ(properties->latitudeReference, u"N");
    EXPECT_EQ(properties->longitude, 2.25);
    EXPECT_EQ(properties->longitudeReference, u"E");
    EXPECT_EQ(properties->sources.position, source);
}

std::optional<PictureProperties> readMore(const std::string& bytes)
{
    MemoryByteSource source(test::viewOf(bytes));
    return readMoreProperties(source, "en");
}

// One entry of the list of items; those that belong to the picture's grid are hidden.
std::string itemInfo(std::uint32_t item, const std::string& type, const std::string& rest = "\0"s)
{
    return isoFullBox("infe", 2, big16(item) + big16(0) + type + rest);
}

std::string itemPlace(std::uint32_t item, std::uint32_t method, std::uint32_t offset,
                      std::size_t length)
{
    return big16(item) + big16(method) + big16(0) + big16(1) + big32(offset) +
           big32(static_cast<std::uint32_t>(length));
}
}  // namespace

// Source: "Apple HEVC Stereo Video", Interoperability Profile 1.0; QuickTime File Format.
TEST(recentCameras, aSpatialVideoHasItsPlace)
{
    const std::string eyes =
        isoBox("eyes", isoFullBox("stri", 0, "\3") + isoFullBox("hero", 0, "\1"));
    const std::string entry =
        isoBox("hvc1", std::string(78, '\0') + isoBox("hvcC", std::string(120, '\1')) +
                           isoBox("lhvC", std::string(90, '\1')) + isoBox("vexu", eyes) +
                           isoBox("hfov", big32(63400)));
    const std::string samples =
        isoFullBox("stsd", 0, big32(1) + entry) +
        isoFullBox("stsz", 0, big32(0) + big32(900) + std::string(3600, 's'));
    const std::string media = isoBox("mdia", isoFullBox("mdhd", 0, std::string(20, '\0')) +
                                                 isoBox("minf", isoBox("stbl", samples)));
    const std::string track = isoBox("trak", isoFullBox("tkhd", 0, std::string(80, '\0')) + media);
    expectPlace(readMore(test::quickTimeFile(track + track + test::placeAsKey("+48.5+002.25+050/"),
                                             100000)),
                ValueSource::quickTime);
}

// Source: Digital Negative Specification 1.7.1.0, "Compression" (52546, JPEG XL).
TEST(recentCameras, aDigitalNegativeInJpegXlHasItsPlace)
{
    for (const auto order : {test::ByteOrder::little, test::ByteOrder::big}) {
        constexpr std::uint16_t kJpegXl = 52546;
        // The raw image is after the block; nothing of it is looked at.
        const std::string codestream = "\xff\x0a" + std::string(5000, 'x');
        const auto place = static_cast<std::uint32_t>(20000);
        std::string dng = test::tiffBlock(
            {.order = order,
             .fields = {test::longField(order, 0x00fe, 0), test::shortField(order, 0x0103, kJpegXl),
                        test::longField(order, 0x0111, place),
                        test::longField(order, 0x0117,
                                        static_cast<std::uint32_t>(codestream.size())),
                        test::longField(order, 0x014a, place), test::byteField(0xc612, "\1\7\1\0"s),
                        test::byteField(0xc613, "\1\7\0\0"s)},
             .gps = test::gpsFields(kFields)});
        dng.resize(place, '\0');
        dng += codestream;
        MemoryByteSource source(test::viewOf(dng));
        expectPlace(readPictureProperties(source), ValueSource::exif);
        expectPlace(readMore(dng), ValueSource::exif);
    }
}

// Source: https://github.com/lclevy/canon_cr3/blob/master/heif.md; ISO/IEC 23008-12.
TEST(recentCameras, aHeifPictureOfCanonHasItsPlace)
{
    const std::string canon = "\x85\xc0\xb6\x87\x82\x0f\x11\xe0\x81\x11\xf4\xce\x46\x2b\x6a\x48";
    const std::string exif = test::heifExif(test::tiffWithGps(kFields));
    const std::string xmp = test::xmpPacket("photoshop:City='Rome'");
    constexpr std::uint32_t kExif = 0x600;
    constexpr std::uint32_t kXmp = 0xcc00;
    constexpr std::uint32_t kTiles = 0x10000;
    constexpr std::uint32_t kTileSize = 70000;

    std::string infos = itemInfo(1, "grid");
    std::string places = itemPlace(1, 1, 0, 8);
    for (std::uint32_t tile = 0; tile < 4; tile++) {
        infos += itemInfo(0x100 + tile, "hvc1");
        places += itemPlace(0x100 + tile, 0, kTiles + tile * kTileSize, kTileSize);
    }
    infos += itemInfo(0x300, "Exif") + itemInfo(0x301, "mime", "\0application/rdf+xml\0\0"s);
    places += itemPlace(0x300, 0, kExif, exif.size()) + itemPlace(0x301, 0, kXmp, xmp.size());
    const std::string meta =
        isoFullBox("meta", 0,
                   isoFullBox("hdlr", 0, "\0\0\0\0pict"s + std::string(13, '\0')) +
                       isoBox("uuid", canon + isoBox("CNCV", "CanonHEIF001/10.00.00/00.00.00")) +
                       isoFullBox("pitm", 0, big16(1)) + isoFullBox("iinf", 0, big16(7) + infos) +
                       isoBox("idat", "\0\0\1\1\x15\x60\x0e\x40"s) +
                       isoFullBox("iloc", 1, "\x44\0"s + big16(7) + places));
    const std::string start = isoBox("ftyp", "heix\0\0\0\0mif1heix"s) + meta;
    ASSERT_LT(start.size() + 8, kExif);
    std::string file = start + big32(kTiles + 4 * kTileSize) + "mdat";
    file.resize(kExif, '\0');
    file += exif;
    file.resize(kXmp, '\0');
    file += xmp;
    file.resize(kTiles + 4 * kTileSize, 'p');

    const auto properties = readMore(file);
    expectPlace(properties, ValueSource::exif);
    EXPECT_EQ(properties->city, u"Rome");
}
