#include "pictures/more_properties.h"

#include "pictures/picture_file.h"
#include "tests/support/byte_views.h"
#include "tests/support/container_builder.h"
#include "tests/support/environment.h"
#include "tests/support/picture_builder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <random>

using namespace pinorama;

using test::viewOf;
using namespace std::string_literals;

namespace {
const test::PictureFields kFields{.lat = 48.5, .latRef = "N", .lon = 2.25, .lonRef = "E"};
const std::string kTiff = test::tiffWithGps(kFields);
const std::string kXmp = test::xmpPacket("photoshop:City='Rome'");
const std::string kPlacedXmp =
    test::xmpPacket("exif:GPSLatitude='10,30S' exif:GPSLongitude='20,15W' photoshop:City='Rome'");

std::string gpsDirectoryOnly()
{
    return test::tiffBlock({.fields = test::gpsFields(kFields)});
}

std::string tiffWithXmp(const std::string& xmp)
{
    return test::tiffBlock({.fields = {{0x02bc, 1, static_cast<std::uint32_t>(xmp.size()), xmp}}});
}

struct Container {
    const char* name;
    std::string bytes;
};

// Every container, with the position in Exif and the city in XMP.
std::vector<Container> containersWithBoth()
{
    const std::string exif = test::heifExif(kTiff);
    const std::string jpeg = test::jpegPicture({test::exifSegment(kTiff), test::xmpSegment(kXmp)});
    return {
        {"HEIC",
         test::heifFile({.items = {{"Exif", exif}, {"mime", kXmp, "application/rdf+xml"}}})},
        {"CR3", test::cr3File("", gpsDirectoryOnly(), kXmp)},
        {"JPEG XL", test::jxlFile(kTiff, kXmp)},
        {"PNG", test::pngFile({test::pngChunk("eXIf", kTiff), test::pngXmpChunk(kXmp)})},
        {"WebP", test::webpFile({test::webpChunk("EXIF", kTiff), test::webpChunk("XMP ", kXmp)})},
        {"PSD", test::psdFile(test::photoshopResource(0x0422, kTiff) +
                              test::photoshopResource(0x0424, kXmp))},
        {"JPEG", jpeg},
        {"RAF", test::rafPicture(jpeg)},
        {"X3F", test::x3fFile(jpeg)},
    };
}

// Every container that may have its position in XMP.
std::vector<Container> containersWithXmp()
{
    const test::HeifItem item{"mime", kPlacedXmp, "application/rdf+xml"};
    return {
        {"HEIC", test::heifFile({.items = {item}})},
        {"CR3", test::cr3File("", "", kPlacedXmp)},
        {"JPEG XL", test::jxlFile("", kPlacedXmp)},
        {"MOV", test::quickTimeFile(test::isoBox("udta", test::isoBox("XMP_", kPlacedXmp)))},
        {"PNG", test::pngFile({test::pngXmpChunk(kPlacedXmp)})},
        {"WebP", test::webpFile({test::webpChunk("XMP ", kPlacedXmp)})},
        {"GIF", test::gifFile(kPlacedXmp)},
        {"PSD", test::psdFile(test::photoshopResource(0x0424, kPlacedXmp))},
        {"JPEG", test::jpegPicture({test::xmpSegment(kPlacedXmp)})},
        {"TIFF", tiffWithXmp(kPlacedXmp)},
        {"MRW", test::mrwPicture(tiffWithXmp(kPlacedXmp))},
        {"sidecar", kPlacedXmp},
    };
}

std::optional<PictureProperties> readMore(const std::string& bytes)
{
    MemoryByteSource source(viewOf(bytes));
    return readMoreProperties(source, "en");
}
}  // namespace

TEST(readMoreProperties, takesTheRestFromXmp)
{
    for (const Container& container : containersWithBoth()) {
        SCOPED_TRACE(container.name);
        const auto properties = readMore(container.bytes);
        ASSERT_TRUE(properties);
        EXPECT_EQ(properties->latitude, 48.5);
        EXPECT_EQ(properties->longitude, 2.25);
        EXPECT_EQ(properties->city, u"Rome");
        EXPECT_EQ(properties->sources.position, ValueSource::exif);
        EXPECT_EQ(properties->sources.city, ValueSource::xmp);
    }
}

TEST(readMoreProperties, readsXmpInEveryContainer)
{
    for (const Container& container : containersWithXmp()) {
        SCOPED_TRACE(container.name);
        const auto properties = readMore(container.bytes);
        ASSERT_TRUE(properties);
        EXPECT_EQ(properties->latitude, 10.5);
        EXPECT_EQ(properties->latitudeReference, u"S");
        EXPECT_EQ(properties->longitude, 20.25);
        EXPECT_EQ(properties->longitudeReference, u"W");
        EXPECT_EQ(properties->city, u"Rome");
        EXPECT_EQ(properties->sources.position, ValueSource::xmp);
    }
}

TEST(readMoreProperties, xmpCountsBeforeThePlaceOfAVideo)
{
    const std::string place = test::placeAsKey("+48.5-002.25-12/");
    const auto video = readMore(test::quickTimeFile(place));
    ASSERT_TRUE(video);
    EXPECT_EQ(video->latitude, 48.5);
    EXPECT_EQ(video->latitudeReference, u"N");
    EXPECT_EQ(video->longitude, 2.25);
    EXPECT_EQ(video->longitudeReference, u"W");
    EXPECT_EQ(video->altitude, 12.0);
    EXPECT_EQ(video->altitudeReference, 1);
    EXPECT_TRUE(video->hasGps);
    EXPECT_EQ(video->sources.position, ValueSource::quickTime);

    const auto both = readMore(
        test::quickTimeFile(place + test::isoBox("udta", test::isoBox("XMP_", kPlacedXmp))));
    ASSERT_TRUE(both);
    EXPECT_EQ(both->latitude, 10.5);
    EXPECT_EQ(both->sources.position, ValueSource::xmp);
    EXPECT_EQ(both->sources.altitude, ValueSource::quickTime);
}

TEST(readMoreProperties, readsWhatIsReadWithoutItTheSame)
{
    for (const test::ByteOrder order : {test::ByteOrder::little, test::ByteOrder::big}) {
        const std::string jpeg = test::pictureWithGps(test::everyField(order));
        const std::string tiff = test::tiffWithGps(test::everyField(order));
        for (const std::string& bytes :
             {jpeg, tiff, test::rafPicture(jpeg), test::mrwPicture(tiff), test::crwPicture()}) {
            MemoryByteSource source(viewOf(bytes));
            EXPECT_EQ(readMore(bytes), readPictureProperties(source));
        }
    }
}

TEST(readPictureProperties, knowsNothingOfFurtherKindsAndXmp)
{
    for (const auto& containers : {containersWithBoth(), containersWithXmp()}) {
        for (const Container& container : containers) {
            SCOPED_TRACE(container.name);
            MemoryByteSource source(viewOf(container.bytes));
            const auto properties = readPictureProperties(source);
            if (!properties) continue;
            EXPECT_FALSE(properties->city);
            EXPECT_EQ(properties->sources, ValueSources());
        }
    }
}

TEST(readMoreProperties, refusesWhatIsNoneOfThem)
{
    for (const std::string& bytes :
         {""s, "text"s, "<html/>"s, std::string(100, '\0'), "%PDF-1.7"s, "PK\3\4"s,
          "RIFF\0\0\0\0WAVE"s, "ID3\4"s, "\x1a\x45\xdf\xa3"s}) {
        SCOPED_TRACE(bytes);
        EXPECT_FALSE(readMore(bytes));
    }
}

TEST(readMoreProperties, readsBigTiff)
{
    const std::string xmp = test::xmpPacket("photoshop:City='Rome'");
    for (const test::ByteOrder order : {test::ByteOrder::little, test::ByteOrder::big}) {
        for (const int pointerType : {4, 13, 16, 18}) {
            SCOPED_TRACE(pointerType);
            const std::string file = test::bigTiffFile(order, pointerType, xmp);
            const auto properties = readMore(file);
            ASSERT_TRUE(properties);
            EXPECT_EQ(properties->latitude, 48.5);
            EXPECT_EQ(properties->latitudeReference, u"N");
            EXPECT_EQ(properties->longitude, 2.25);
            EXPECT_EQ(properties->longitudeReference, u"E");
            EXPECT_EQ(properties->city, u"Rome");

            MemoryByteSource source(test::viewOf(file));
            EXPECT_FALSE(readPictureProperties(source)) << "only where somebody asks for more";
            for (std::size_t size = 0; size < file.size(); size++)
                (void)readMore(file.substr(0, size));
        }
    }
}

TEST(readMoreProperties, readsOnlyTheStartOfAnyOtherFile)
{
    const test::TemporaryFolder folder;
    const PictureFile file(folder.write("a.mov", std::string(1 << 20, 'x')));
    FileByteSource source(file.descriptor(), file.size());
    EXPECT_FALSE(readMoreProperties(source, "en"));
    EXPECT_LE(source.readCount(), 2);
}

TEST(readMoreProperties, readsLessThanAMegabyteOfAFileMadeToKeepItBusy)
{
    // Boxes as far apart as a read is long, up to the end of a gigabyte.
    const test::TemporaryFolder folder;
    const std::string path = folder.write("busy.mov", test::isoBox("ftyp", "qt  "));
    std::fstream file(path, std::ios::binary | std::ios::in | std::ios::out);
    std::uint64_t position = 12;
    for (int i = 0; i < 4000; i++) {
        file.seekp(static_cast<std::streamoff>(position));
        file << test::big32(250000) << (i % 2 == 0 ? "moov" : "meta");
        position += 250000;
    }
    file.close();
    std::filesystem::resize_file(path, position);

    const PictureFile picture(path);
    FileByteSource source(picture.descriptor(), picture.size());
    (void)readMoreProperties(source, "en");
    EXPECT_LE(source.readCount(), (1 << 20) / (16 * 1024));
}

TEST(readMoreProperties, endsAtEveryTruncation)
{
    for (const auto& containers : {containersWithBoth(), containersWithXmp()}) {
        for (const Container& container : containers) {
            for (std::size_t length = 0; length < container.bytes.size(); length++) {
                // A copy, so that the sanitizers see a byte too many being read.
                const std::string cut = container.bytes.substr(0, length);
                (void)readMore(cut);  // has to end
            }
        }
    }
}

TEST(readMoreProperties, endsOnEveryMutation)
{
    std::mt19937 random(1904);
    const auto start = std::chrono::steady_clock::now();
    for (const auto& containers : {containersWithBoth(), containersWithXmp()}) {
        for (const Container& container : containers) {
            for (int i = 0; i < 500; i++) {
                std::string bytes = container.bytes;
                for (std::uint32_t changes = random() % 4 + 1; changes != 0; --changes) {
                    static constexpr char kTelling[] = {'\0', '\1', '\x7f', '\x80', '\xff', '<'};
                    bytes[random() % bytes.size()] = kTelling[random() % sizeof kTelling];
                }
                (void)readMore(bytes);  // has to end
            }
        }
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(60));
}
