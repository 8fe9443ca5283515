#include "pictures/iso_media.h"

#include "pictures/iso_boxes.h"
#include "tests/support/byte_views.h"
#include "tests/support/container_builder.h"
#include "tests/support/picture_builder.h"

#include <gtest/gtest.h>

#include <ctime>

using namespace pinorama;

using test::isoBox;
using test::textOf;
using test::viewOf;
using namespace std::string_literals;

namespace {
const std::string kTiff = test::tiffBlock({});
const std::string kXmp = test::xmpPacket("photoshop:City='Rome'");
const test::HeifItem kExifItem{"Exif", test::heifExif(kTiff)};
const test::HeifItem kXmpItem{"mime", kXmp, "application/rdf+xml"};

struct Found {
    std::string exif;
    std::string gps;
    std::string xmp;

    friend bool operator==(const Found&, const Found&) = default;
};

Found foundIn(const std::string& file)
{
    MemoryByteSource source(viewOf(file));
    EXPECT_TRUE(isIsoMedia(ByteBlock(source)));
    const EmbeddedMetadata metadata = findIsoMetadata(ByteBlock(source));
    return {textOf(metadata.exif), textOf(metadata.gps), textOf(metadata.xmp)};
}

// The names and contents of the boxes in `bytes`.
std::string namesIn(const std::string& bytes)
{
    MemoryByteSource source(viewOf(bytes));
    StepBudget budget;
    IsoBoxes boxes(ByteBlock(source), budget);
    std::string names;
    while (const auto box = boxes.next()) {
        for (const int shift : {24, 16, 8, 0}) names += static_cast<char>(box->type >> shift);
        names += "(" + textOf(box->content) + ")";
    }
    return names;
}
}  // namespace

TEST(IsoBoxes, stepFromBoxToBox)
{
    const struct {
        const char* name;
        std::string bytes;
        const char* expected;
    } rows[] = {
        {"none", "", ""},
        {"empty one", isoBox("free", ""), "free()"},
        {"several", isoBox("ftyp", "a") + isoBox("mdat", "bc"), "ftyp(a)mdat(bc)"},
        {"size of eight bytes", "\0\0\0\1mdat\0\0\0\0\0\0\0\x12xy"s + isoBox("free", ""),
         "mdat(xy)free()"},
        {"size 0: up to the end", "\0\0\0\0mdatrest"s, "mdat(rest)"},
        {"beyond the end", "\0\0\1\0mdatrest"s, "mdat(rest)"},
        {"eight bytes beyond the end", "\0\0\0\1mdat\xff\xff\xff\xff\xff\xff\xff\xffrest"s,
         "mdat(rest)"},
        {"less than its header", "\0\0\0\7mdatrest"s, ""},
        {"eight bytes less than its header", "\0\0\0\1mdat\0\0\0\0\0\0\0\x0frest"s, ""},
        {"cut header", isoBox("ftyp", "a") + "\0\0\0"s, "ftyp(a)"},
        {"cut size of eight bytes", "\0\0\0\1mdat\0\0\0"s, ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(namesIn(row.bytes), row.expected);
    }
}

TEST(IsoBoxes, endWithTheBudget)
{
    std::string bytes;
    for (int i = 0; i < 100; i++) bytes += isoBox("free", std::string(16 * 1024, 'x'));
    MemoryByteSource source(viewOf(bytes));
    StepBudget budget;
    IsoBoxes boxes(ByteBlock(source), budget);
    int count = 0;
    while (boxes.next()) ++count;
    EXPECT_EQ(count, 24);  // 384 KiB
    EXPECT_FALSE(budget.spend(1));
}

TEST(findIsoMetadata, countsNoExtentsThatTakeNoBytes)
{
    // Sizes of 0 for offsets and lengths, and items that claim 65,535 extents each.
    std::string locations = test::big16(0) + test::big16(20000);
    for (int i = 0; i < 20000; i++) {
        locations += test::big16(1) + test::big16(0) + test::big16(0xffff);
    }
    const std::string file = test::isoBox("ftyp", "heic") +
                             test::isoFullBox("meta", 0, test::isoFullBox("iloc", 0, locations));
    const std::clock_t start = std::clock();
    (void)foundIn(file);
    EXPECT_LT(static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC, 5.0);
}

TEST(findIsoMetadata, findsItemsHoweverTheyAreWritten)
{
    for (const int infoVersion : {2, 3}) {
        for (const int locationVersion : {0, 1, 2}) {
            for (const int baseOffsetSize : {0, 4, 8}) {
                for (const bool isMetaLast : {false, true}) {
                    SCOPED_TRACE(testing::Message()
                                 << "infe " << infoVersion << ", iloc " << locationVersion
                                 << ", base offset " << baseOffsetSize << ", meta last "
                                 << isMetaLast);
                    EXPECT_EQ(
                        foundIn(test::heifFile({.items = {{"hvc1", "pixels"}, kExifItem, kXmpItem},
                                                .infoVersion = infoVersion,
                                                .locationVersion = locationVersion,
                                                .baseOffsetSize = baseOffsetSize,
                                                .isMetaLast = isMetaLast})),
                        (Found{kTiff, "", kXmp}));
                }
            }
        }
    }
    EXPECT_EQ(foundIn(test::heifFile({.items = {kExifItem, kXmpItem}, .isDataInMeta = true})),
              (Found{kTiff, "", kXmp}));
}

TEST(findIsoMetadata, findsTheTiffBlockInAnExifItem)
{
    const struct {
        const char* name;
        std::string data;
        std::string expected;
    } rows[] = {
        {"after its name", test::heifExif(kTiff), kTiff},
        {"at once", test::heifExif(kTiff, false), kTiff},
        {"offset 0, but a name", test::big32(0) + "Exif\0\0"s + kTiff, kTiff},
        {"wrong offset", test::big32(77777) + "Exif\0\0"s + kTiff, kTiff},
        {"no TIFF", test::big32(0) + "nothing of that kind", ""},
        {"empty", "", ""},
        {"three bytes", "\0\0\0"s, ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(foundIn(test::heifFile({.items = {{"Exif", row.data}}})).exif, row.expected);
    }
}

TEST(findIsoMetadata, theFirstItemOfAKindCounts)
{
    const test::HeifItem other{"mime", "<other/>", "application/rdf+xml"};
    const test::HeifItem json{"mime", "{}", "application/json"};
    EXPECT_EQ(foundIn(test::heifFile({.items = {json, kXmpItem, other}})).xmp, kXmp);
}

TEST(findIsoMetadata, survivesTablesThatPromiseTooMuch)
{
    // More items than there are, numbers of 15 bytes, an unknown version.
    for (const std::string& iloc :
         {"\1\0\0\0\x44\0\xff\xff"s, "\1\0\0\0\xff\xff\0\1"s + std::string(90, '\xff'),
          "\7\0\0\0\x44\0\0\1"s, "\0\0\0\0\x44\0\0\1\0\1\0\0\xff\xff"s}) {
        const std::string meta =
            isoBox("meta", "\0\0\0\0"s + isoBox("iloc", iloc) + isoBox("iinf", "\0\0"s));
        EXPECT_EQ(foundIn(isoBox("ftyp", "heic") + meta), Found{});
    }
}

TEST(findIsoMetadata, findsTheBlocksOfACr3File)
{
    const std::string gps = test::tiffBlock({.order = test::ByteOrder::big});
    EXPECT_EQ(foundIn(test::cr3File(kTiff, gps, kXmp)), (Found{kTiff, gps, kXmp}));
}

TEST(findIsoMetadata, findsTheBoxesOfJpegXl)
{
    EXPECT_EQ(foundIn(test::jxlFile(kTiff, kXmp)), (Found{kTiff, "", kXmp}));
}

TEST(findIsoMetadata, findsXmpInTheUserDataOfAVideo)
{
    const std::string moov = isoBox("udta", isoBox("XMP_", kXmp));
    EXPECT_EQ(foundIn(test::quickTimeFile(moov)).xmp, kXmp);
}

TEST(isIsoMedia, looksAtTheFirstBox)
{
    const struct {
        const char* name;
        std::string bytes;
        bool expected;
    } rows[] = {
        {"typed", isoBox("ftyp", "heic"), true},
        {"old video", isoBox("moov", "data"), true},
        {"old video with its data first", isoBox("mdat", "data"), true},
        {"JPEG XL", isoBox("JXL ", "\x0d\x0a\x87\x0a"), true},
        {"another signature", isoBox("JXL ", "abcd"), false},
        {"another box", isoBox("what", "abcd"), false},
        {"text", "There are many texts", false},
        {"cut",
         "\0\0\0\x14"
         "ftyp"s,
         false},
        {"empty", "", false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        MemoryByteSource source(viewOf(row.bytes));
        EXPECT_EQ(isIsoMedia(ByteBlock(source)), row.expected);
    }
}
