#include "pictures/picture_properties.h"

#include "tests/support/byte_views.h"
#include "tests/support/picture_builder.h"

#include <gtest/gtest.h>

using namespace pinorama;

using test::ByteOrder;

namespace {
std::optional<PictureProperties> propertiesOf(const std::string& bytes)
{
    MemoryByteSource source(test::viewOf(bytes));
    return readPictureProperties(source);
}

const test::PictureFields kEverything{.lat = 48.1,
                                      .latRef = "N",
                                      .lon = 11.5,
                                      .lonRef = "E",
                                      .altitude = 519.25,
                                      .altitudeRef = 1,
                                      .destDistance = 2.5,
                                      .destDistanceRef = "K",
                                      .satellites = "tilt:45.5",
                                      .imgDirection = 271.5,
                                      .city = "M\u00fcnchen",
                                      .state = "Bayern",
                                      .country = "Deutschland",
                                      .caption = "Marienplatz"};

void expectPosition(const PictureProperties& properties)
{
    EXPECT_TRUE(properties.hasGps);
    EXPECT_EQ(properties.latitude, 48.1);
    EXPECT_EQ(properties.latitudeReference, u"N");
    EXPECT_EQ(properties.longitude, 11.5);
    EXPECT_EQ(properties.longitudeReference, u"E");
    EXPECT_EQ(properties.altitude, 519.25);
    EXPECT_EQ(properties.altitudeReference, 1);
    EXPECT_EQ(properties.destinationDistance, 2.5);
    EXPECT_EQ(properties.destinationDistanceReference, u"K");
    EXPECT_EQ(properties.satellites, u"tilt:45.5");
    EXPECT_EQ(properties.imageDirection, 271.5);
}

void expectTexts(const PictureProperties& properties)
{
    EXPECT_TRUE(properties.hasIptc);
    EXPECT_EQ(properties.city, u"M\u00fcnchen");
    EXPECT_EQ(properties.state, u"Bayern");
    EXPECT_EQ(properties.country, u"Deutschland");
    EXPECT_EQ(properties.caption, u"Marienplatz");
}

test::TiffField iptcField(const std::string& record)
{
    return {0x83bb, 7, static_cast<std::uint32_t>(record.size()), record};
}
}  // namespace

TEST(readPictureProperties, readsEveryContainerInBothByteOrders)
{
    for (const ByteOrder order : {ByteOrder::little, ByteOrder::big}) {
        test::PictureFields fields = kEverything;
        fields.order = order;
        const std::vector<test::TiffField> gps = test::gpsFields(fields);
        const std::vector<test::TiffField> first = {iptcField(test::iptcRecord(fields))};
        const auto tiff = [&](std::uint16_t number) {
            return test::tiffBlock({.order = order, .number = number, .fields = first, .gps = gps});
        };
        const struct {
            const char* name;
            std::string picture;
        } rows[] = {
            {"JPEG", test::pictureWithGps(fields)},
            {"JPEG with IPTC in the first directory",
             test::jpegPicture({test::exifSegment(tiff(42))})},
            {"TIFF", tiff(42)},
            {"Olympus IIRO or MMOR", tiff(0x4f52)},
            {"Olympus IIRS", tiff(0x5352)},
            {"Panasonic IIU", tiff(0x0055)},
            {"RAF", test::rafPicture(test::pictureWithGps(fields))},
            {"MRW", test::mrwPicture(tiff(42))},
        };
        for (const auto& row : rows) {
            SCOPED_TRACE(row.name);
            SCOPED_TRACE(order == ByteOrder::big ? "big-endian" : "little-endian");
            const std::optional<PictureProperties> properties = propertiesOf(row.picture);
            ASSERT_TRUE(properties);
            expectPosition(*properties);
            expectTexts(*properties);
        }
    }
}

TEST(readPictureProperties, knowsPicturesWithoutProperties)
{
    const struct {
        const char* name;
        std::string picture;
    } rows[] = {
        {"CRW", test::crwPicture()},
        {"JPEG", test::jpegPicture({})},
        {"start of a JPEG", "\xff\xd8"},
        {"TIFF", test::tiffBlock({})},
        {"TIFF whose directory is outside", std::string("II*\0\xf0\0\0\0", 8)},
        {"MRW without TIFF block", std::string("\0MRM\0\0\0\x8\0PRD\0\0\0\0", 16)},
        {"RAF that ends in its header", "FUJIFILMCCD-RAW 0201"},
        {"RAF whose picture is no JPEG", test::rafPicture("no JPEG")},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const std::optional<PictureProperties> properties = propertiesOf(row.picture);
        ASSERT_TRUE(properties);
        EXPECT_EQ(*properties, PictureProperties{});
    }
}

TEST(readPictureProperties, refusesWhatIsNoPicture)
{
    const struct {
        const char* name;
        std::string bytes;
    } rows[] = {
        {"nothing", ""},
        {"one byte", "\xff"},
        {"text", "It was a bright cold day in April."},
        {"PNG", "\x89PNG\r\n\x1a\n" + std::string(64, '\0')},
        {"mixed byte orders", std::string("IM*\0\x8\0\0\0\0\0", 10)},
        {"another number", std::string("II+\0\x8\0\0\0\0\0", 10)},
        {"cut TIFF header", std::string("II*\0\x8\0\0", 7)},
        {"cut CRW header", std::string("II\x1a\0\0\0HEAPCCD", 13)},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_FALSE(propertiesOf(row.bytes));
    }
}

TEST(readPictureProperties, textsOfThePhotoshopResourcesComeFirst)
{
    const std::string inTiff = test::tiffBlock(
        {.fields = {iptcField(test::iptcRecord({.city = "from the directory", .state = "old"}))}});
    const std::string resource =
        test::photoshopResource(0x0404, test::iptcRecord({.city = "from the resources"}));
    const std::string picture =
        test::jpegPicture({test::exifSegment(inTiff), test::photoshopSegment(resource)});

    const std::optional<PictureProperties> properties = propertiesOf(picture);
    ASSERT_TRUE(properties);
    EXPECT_EQ(properties->city, u"from the resources");
    EXPECT_EQ(properties->state, std::nullopt);  // the two records are not mixed
}

TEST(readPictureProperties, directoryTextsServeWhenTheResourcesHaveNone)
{
    const std::string inTiff =
        test::tiffBlock({.fields = {iptcField(test::iptcRecord({.city = "Rome"}))}});
    const std::string picture =
        test::jpegPicture({test::photoshopSegment(test::photoshopResource(0x03ed, "resolution")),
                           test::exifSegment(inTiff)});

    const std::optional<PictureProperties> properties = propertiesOf(picture);
    ASSERT_TRUE(properties);
    EXPECT_EQ(properties->city, u"Rome");
}

TEST(readPictureProperties, resourcesGoOnInTheNextSegment)
{
    const std::string resources = test::photoshopResource(0x03ed, std::string(40, 'r')) +
                                  test::photoshopResource(0x0404, test::iptcRecord(kEverything));
    for (const std::size_t cut : {1, 30, 60, 75, 100}) {
        SCOPED_TRACE(cut);
        const std::string picture =
            test::jpegPicture({test::photoshopSegment(resources.substr(0, cut)),
                               test::photoshopSegment(resources.substr(cut))});
        const std::optional<PictureProperties> properties = propertiesOf(picture);
        ASSERT_TRUE(properties);
        expectTexts(*properties);
    }
}

TEST(readPictureProperties, readsARecordThatIsStoredAsLongIntegers)
{
    // Programs that count the record in units of four bytes fill it up with zeros.
    std::string record = test::iptcRecord({.city = "Rome"});
    record.resize((record.size() + 3) / 4 * 4, '\0');
    const test::TiffField field{0x83bb, 4, static_cast<std::uint32_t>(record.size() / 4), record};
    const std::optional<PictureProperties> properties =
        propertiesOf(test::tiffBlock({.fields = {field}}));
    ASSERT_TRUE(properties);
    EXPECT_EQ(properties->city, u"Rome");
}

TEST(readPictureProperties, looksOnlyAtTheFirstImage)
{
    const std::string second = test::pictureWithGps(kEverything);
    const std::optional<PictureProperties> properties =
        propertiesOf(test::jpegPicture({}) + second);
    ASSERT_TRUE(properties);
    EXPECT_FALSE(properties->hasGps);
}

TEST(readPictureProperties, readsAGpsDirectoryThatAnotherPointerShares)
{
    // Windows phones point to the same place for the GPS directory and, from the Exif directory,
    // for the interoperability directory.
    const ByteOrder order = ByteOrder::little;
    const std::vector<test::TiffField> gps = test::gpsFields(kEverything);
    const std::uint32_t exifOffset = 8 + 2 + 2 * 12 + 4;
    const std::uint32_t gpsOffset = exifOffset + 2 + 12 + 4;
    const std::string tiff =
        std::string("II*\0\x8\0\0\0", 8) +
        test::tiffDirectory(order, 8,
                            {test::longField(order, 0x8769, exifOffset),
                             test::longField(order, 0x8825, gpsOffset)}) +
        test::tiffDirectory(order, exifOffset, {test::longField(order, 0xa005, gpsOffset)}) +
        test::tiffDirectory(order, gpsOffset, gps);

    const std::optional<PictureProperties> properties =
        propertiesOf(test::jpegPicture({test::exifSegment(tiff)}));
    ASSERT_TRUE(properties);
    expectPosition(*properties);
}

TEST(readPictureProperties, offsetsEndWithTheSegment)
{
    // A cut Exif segment: its GPS directory would lie in the segment after it.
    const std::string tiff = test::tiffWithGps(kEverything);
    const std::string picture = test::jpegPicture(
        {test::exifSegment(tiff.substr(0, 26)), test::jpegSegment(0xe2, tiff.substr(26 + 4))});
    const std::optional<PictureProperties> properties = propertiesOf(picture);
    ASSERT_TRUE(properties);
    EXPECT_EQ(*properties, PictureProperties{});
}
