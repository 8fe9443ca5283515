#include "pictures/gif_blocks.h"
#include "pictures/jpeg_segments.h"
#include "pictures/png_chunks.h"
#include "pictures/psd_resources.h"
#include "pictures/webp_chunks.h"
#include "pictures/x3f.h"

#include "tests/support/byte_views.h"
#include "tests/support/container_builder.h"
#include "tests/support/picture_builder.h"

#include <gtest/gtest.h>

using namespace pinorama;

using test::textOf;
using test::viewOf;
using namespace std::string_literals;

namespace {
const std::string kTiff = test::tiffBlock({});
const std::string kXmp = test::xmpPacket("photoshop:City='Rome'");

struct Found {
    std::string exif;
    std::string xmp;
    std::string iptc{};

    friend bool operator==(const Found&, const Found&) = default;
};

struct Row {
    const char* name;
    std::string bytes;
    Found expected;
};

void expectFound(const std::vector<Row>& rows, bool (*isOne)(const ByteBlock&),
                 EmbeddedMetadata (*find)(const ByteBlock&))
{
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        MemoryByteSource source(viewOf(row.bytes));
        EXPECT_TRUE(isOne(ByteBlock(source)));
        const EmbeddedMetadata metadata = find(ByteBlock(source));
        const Found found{textOf(metadata.exif), textOf(metadata.xmp), textOf(metadata.iptc)};
        EXPECT_EQ(found, row.expected);
    }
}
}  // namespace

TEST(findPngMetadata, findsTheChunks)
{
    const std::string exif = test::pngChunk("eXIf", kTiff);
    const std::string xmp = test::pngXmpChunk(kXmp);
    const std::string pixels = test::pngChunk("IDAT", std::string(5000, 'p'));
    std::string much;
    for (int i = 0; i < 100; i++) much += test::pngChunk("IDAT", std::string(8192, 'p'));
    expectFound(
        {
            {"in front of the pixels", test::pngFile({exif, xmp, pixels}), {kTiff, kXmp}},
            {"after them", test::pngFile({pixels, xmp, exif}), {kTiff, kXmp}},
            {"with the name of JPEG's",
             test::pngFile({test::pngChunk("eXIf", "Exif\0\0"s + kTiff)}),
             {kTiff, ""}},
            {"the first counts",
             test::pngFile({exif, test::pngChunk("eXIf", "MM\0*"s)}),
             {kTiff, ""}},
            {"no TIFF", test::pngFile({test::pngChunk("eXIf", "text")}), {"", ""}},
            {"compressed", test::pngFile({test::pngXmpChunk("zlib", true)}), {"", ""}},
            {"another keyword",
             test::pngFile({test::pngChunk("iTXt", "Comment\0\0\0\0\0"s + kXmp)}),
             {"", ""}},
            {"no end of the language",
             test::pngFile({test::pngChunk("iTXt", "XML:com.adobe.xmp\0\0\0en"s)}),
             {"", ""}},
            {"after too many pixels", test::pngFile({much, exif}), {"", ""}},
            {"cut in a chunk", test::pngFile({exif}).substr(0, 33 + 8 + kTiff.size()), {kTiff, ""}},
            {"a length beyond the end",
             test::pngFile({}).substr(0, 8) + "\xff\xff\xff\xffIDAT",
             {"", ""}},
            {"only the name", test::pngFile({}).substr(0, 8), {"", ""}},
        },
        isPng, findPngMetadata);
}

TEST(findWebpMetadata, findsTheChunks)
{
    const std::string exif = test::webpChunk("EXIF", kTiff);
    const std::string xmp = test::webpChunk("XMP ", kXmp);
    const std::string pixels = test::webpChunk("VP8 ", std::string(7777, 'p'));
    expectFound(
        {
            {"after the pixels", test::webpFile({pixels, exif, xmp}), {kTiff, kXmp}},
            {"with the name of JPEG's",
             test::webpFile({test::webpChunk("EXIF", "Exif\0\0"s + kTiff)}),
             {kTiff, ""}},
            {"a zero byte in the name",
             test::webpFile({test::webpChunk("XMP\0"s, kXmp)}),
             {"", kXmp}},
            {"no TIFF", test::webpFile({test::webpChunk("EXIF", "text")}), {"", ""}},
            {"a length beyond the end",
             "RIFF\0\0\0\0WEBPVP8 \xff\xff\xff\xff"
             "data"s,
             {"", ""}},
            {"cut", test::webpFile({exif}).substr(0, 18), {"", ""}},
        },
        isWebp, findWebpMetadata);
}

TEST(findGifMetadata, findsThePacket)
{
    const auto startsWithPacket = [](const std::string& gif) {
        MemoryByteSource source(viewOf(gif));
        EXPECT_TRUE(isGif(ByteBlock(source)));
        return textOf(findGifMetadata(ByteBlock(source)).xmp).starts_with(kXmp);
    };
    EXPECT_TRUE(startsWithPacket(test::gifFile(kXmp)));
    EXPECT_TRUE(startsWithPacket(test::gifFile(kXmp, true)));
    EXPECT_FALSE(startsWithPacket("GIF89a\1\0\1\0\0\0\0;"s));
    EXPECT_FALSE(startsWithPacket("GIF87a"));
    EXPECT_FALSE(startsWithPacket(test::gifFile(kXmp).substr(0, 40)));
    EXPECT_FALSE(startsWithPacket("GIF89a\1\0\1\0\0\0\0\x2c"s));
    EXPECT_FALSE(startsWithPacket("GIF89a\1\0\1\0\0\0\0\x21\xff\x0bXMP Data"s));
}

TEST(findPsdMetadata, findsTheResources)
{
    const std::string iptc = test::iptcRecord({.city = "Rome"});
    const std::string all =
        test::photoshopResource(0x03ed, "odd") + test::photoshopResource(0x0424, kXmp) +
        test::photoshopResource(0x0422, kTiff) + test::photoshopResource(0x0404, iptc);
    const std::string psd = test::psdFile(all);
    expectFound(
        {
            {"all", psd, {kTiff, kXmp, iptc}},
            {"none", test::psdFile(""), {"", ""}},
            {"no TIFF", test::psdFile(test::photoshopResource(0x0422, "text")), {"", ""}},
            {"cut in the header", psd.substr(0, 20), {"", ""}},
            {"cut after the colours", psd.substr(0, 34), {"", ""}},
            {"colours beyond the end", psd.substr(0, 26) + "\xff\xff\xff\xff", {"", ""}},
        },
        isPsd, findPsdMetadata);
}

TEST(findPsdThumbnail, findsTheJpegStream)
{
    const std::string jpeg = "\xff\xd8 and so on";
    const auto psdWith = [](std::uint16_t number, const std::string& data) {
        return test::psdFile(test::photoshopResource(0x03ed, "odd") +
                             test::photoshopResource(number, data));
    };
    const std::string header = "\0\0\0\1"s + std::string(24, '\7');
    const struct {
        const char* name;
        std::string psd;
        std::string expected;
    } rows[] = {
        {"one", psdWith(0x040c, header + jpeg), jpeg},
        {"no resources", test::psdFile(""), ""},
        {"the one of Photoshop 4", psdWith(0x0409, header + jpeg), ""},
        {"another coding", psdWith(0x040c, "\0\0\0\0"s + std::string(24, '\7') + jpeg), ""},
        {"half a header", psdWith(0x040c, header.substr(0, 20)), ""},
        {"less than a coding", psdWith(0x040c, "\0\0"s), ""},
        {"no document", "8BP", ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        MemoryByteSource source(test::viewOf(row.psd));
        const ByteBlock thumbnail = findPsdThumbnail(ByteBlock(source));
        EXPECT_EQ(thumbnail.isEmpty(), row.expected.empty());
        const ByteView bytes = thumbnail.view(0, row.expected.size());
        EXPECT_EQ(std::string(bytes.begin(), bytes.end()), row.expected);
    }
}

TEST(findX3fJpeg, findsTheImageInTheDirectory)
{
    const std::string jpeg = test::jpegPicture({test::exifSegment(kTiff)});
    const std::string x3f = test::x3fFile(jpeg);
    const auto withPlace = [&](const std::string& place) {
        return x3f.substr(0, x3f.size() - 4) + place;
    };
    const struct {
        const char* name;
        std::string bytes;
        std::string expected;
    } rows[] = {
        {"whole", x3f, jpeg},
        {"raw data only", test::x3fFile("no JPEG"), ""},
        {"directory beyond the end", withPlace("\xff\xff\xff\xff"), ""},
        {"directory somewhere else", withPlace("\4\0\0\0"s), ""},
        {"cut", x3f.substr(0, x3f.size() - 5), ""},
        {"only its name", "FOVb", ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        MemoryByteSource source(viewOf(row.bytes));
        EXPECT_TRUE(isX3f(ByteBlock(source)));
        EXPECT_EQ(textOf(findX3fJpeg(ByteBlock(source))), row.expected);
    }
}

TEST(findJpegMetadata, findsXmpWhereItIsAskedFor)
{
    const std::string jpeg = test::jpegPicture(
        {test::xmpSegment(kXmp), test::exifSegment(kTiff), test::xmpSegment("another")});
    MemoryByteSource source(viewOf(jpeg));
    const JpegMetadata with = findJpegMetadata(ByteBlock(source), WithXmp::yes);
    EXPECT_EQ(textOf(with.xmp.packet), kXmp);
    EXPECT_EQ(textOf(with.exif), kTiff);
    const JpegMetadata without = findJpegMetadata(ByteBlock(source));
    EXPECT_TRUE(without.xmp.packet.isEmpty());
    EXPECT_EQ(textOf(without.exif), kTiff);
}
