#include "pictures/crw.h"
#include "pictures/jpeg_segments.h"
#include "pictures/mrw.h"
#include "pictures/raf.h"

#include "tests/support/byte_views.h"
#include "tests/support/picture_builder.h"

#include <gtest/gtest.h>

using namespace pinorama;

using test::textOf;
using test::viewOf;
using namespace std::string_literals;

namespace {
// The start of an image and the given bytes; what is found in it.
JpegMetadata metadataOf(MemoryByteSource& source)
{
    return findJpegMetadata(ByteBlock(source));
}

const std::string kTiff = test::tiffBlock({});
const std::string kStart = "\xff\xd8";
const std::string kScan = "\xff\xda\0\2"s;
}  // namespace

TEST(findJpegMetadata, findsTheExifSegment)
{
    const std::string exif = test::exifSegment(kTiff);
    const struct {
        const char* name;
        std::string jpeg;
        bool isFound;
    } rows[] = {
        {"first", kStart + exif, true},
        {"after other segments",
         kStart + test::jpegSegment(0xe0, "JFIF") +
             test::jpegSegment(0xe1, "http://ns.adobe.com/xap/1.0/") +
             test::jpegSegment(0xfe, "comment") + exif,
         true},
        {"after fill bytes", kStart + "\xff\xff\xff\xff" + exif, true},
        {"after foreign bytes", kStart + "foreign\xff\0bytes"s + exif, true},
        {"after markers that stand alone", kStart + "\xff\x01\xff\xd0\xff\xd7\xff\xd8" + exif,
         true},
        {"after an empty segment", kStart + "\xff\xe5\0\2"s + exif, true},
        {"after an Exif segment without TIFF",
         kStart + test::jpegSegment(0xe1, "Exif\0\0text"s) + exif, true},
        {"another sixth byte", kStart + test::jpegSegment(0xe1, "Exif\0\xff"s + kTiff), true},
        {"after the picture data", kStart + kScan + exif, false},
        {"after the end of the image", kStart + "\xff\xd9" + exif, false},
        {"after a length of 0", kStart + "\xff\xe5\0\0"s + exif, false},
        {"after a length of 1", kStart + "\xff\xe5\0\1"s + exif, false},
        {"in another segment", kStart + test::jpegSegment(0xe2, "Exif\0\0"s + kTiff), false},
        {"another name", kStart + test::jpegSegment(0xe1, "Exit\0\0"s + kTiff), false},
        {"after more foreign bytes than pass for a mistake",
         kStart + std::string(70000, 'x') + exif, false},
        {"after more fill bytes than pass for a mistake",
         kStart + std::string(70000, '\xff') + exif, false},
        {"nothing after the start", kStart, false},
        {"a marker at the end", kStart + "\xff\xe1", false},
        {"half a length at the end", kStart + "\xff\xe1\0"s, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        MemoryByteSource source(viewOf(row.jpeg));
        EXPECT_EQ(textOf(metadataOf(source).exif), row.isFound ? kTiff : "");
    }
}

TEST(findJpegMetadata, theFirstExifSegmentCounts)
{
    const std::string other = test::tiffBlock({.order = test::ByteOrder::big});
    const std::string jpeg = kStart + test::exifSegment(kTiff) + test::exifSegment(other);
    MemoryByteSource source(viewOf(jpeg));
    EXPECT_EQ(textOf(metadataOf(source).exif), kTiff);
}

TEST(findJpegMetadata, aSegmentIsCutAtTheEnd)
{
    const std::string exif = test::exifSegment(kTiff);
    const std::string jpeg = kStart + exif.substr(0, exif.size() - 3);
    MemoryByteSource source(viewOf(jpeg));
    EXPECT_EQ(textOf(metadataOf(source).exif), kTiff.substr(0, kTiff.size() - 3));
}

TEST(findJpegMetadata, collectsThePhotoshopPieces)
{
    const std::string jpeg = kStart + test::photoshopSegment("8BIM one") +
                             test::jpegSegment(0xed, "Adobe_CM") + test::photoshopSegment("") +
                             test::photoshopSegment("two") + kScan +
                             test::photoshopSegment("three");
    MemoryByteSource source(viewOf(jpeg));
    const JpegMetadata metadata = metadataOf(source);
    ASSERT_EQ(metadata.photoshop.size(), 3u);
    EXPECT_EQ(textOf(metadata.photoshop[0]), "8BIM one");
    EXPECT_TRUE(metadata.photoshop[1].isEmpty());
    EXPECT_EQ(textOf(metadata.photoshop[2]), "two");
}

TEST(findRafJpeg, boundsThePictureToTheFile)
{
    const std::string raf = test::rafPicture("JPEG bytes");
    const auto withPlace = [&](const std::string& place) {
        return std::string(raf).replace(84, place.size(), place);
    };
    const struct {
        const char* name;
        std::string raf;
        std::string expected;
    } rows[] = {
        {"whole", raf, "JPEG bytes"},
        {"shorter than the rest", raf + "raw data", "JPEG bytes"},
        {"longer than the rest", withPlace("\0\0\0\xa0\xff\xff\xff\xff"s), "JPEG bytes"},
        {"after the end", withPlace("\xff\xff\xff\xff\0\0\0\1"s), ""},
        {"no length", withPlace("\0\0\0\xa0\0\0\0\0"s), ""},
        {"cut in the place", raf.substr(0, 91), ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        MemoryByteSource source(viewOf(row.raf));
        EXPECT_TRUE(isRaf(ByteBlock(source)));
        EXPECT_EQ(textOf(findRafJpeg(ByteBlock(source))), row.expected);
    }
}

TEST(findMrwTiff, findsTheBlockInTheChain)
{
    const std::string mrw = test::mrwPicture("TIFF bytes");
    const struct {
        const char* name;
        std::string mrw;
        std::string expected;
    } rows[] = {
        {"whole", mrw, "TIFF bytes"},
        {"alone", "\0MRM\0\0\0\x0c\0TTW\0\0\0\4TIFF"s, "TIFF"},
        {"longer than the blocks", "\0MRM\0\0\0\x0c\0TTW\0\0\0\x7fTIFFraw data"s, "TIFF"},
        {"after the blocks", "\0MRM\0\0\0\0\0TTW\0\0\0\4TIFF"s, ""},
        {"after a block that is too long",
         "\0MRM\0\0\0\x18\0PRD\xff\xff\xff\xff....\0TTW\0\0\0\4TIFF"s, ""},
        {"no such block", "\0MRM\0\0\0\x08\0PRD\0\0\0\0"s, ""},
        {"cut in the chain", mrw.substr(0, 8 + 8 + 24 + 5), ""},
        {"cut in the header", mrw.substr(0, 6), ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        MemoryByteSource source(viewOf(row.mrw));
        EXPECT_TRUE(isMrw(ByteBlock(source)));
        EXPECT_EQ(textOf(findMrwTiff(ByteBlock(source))), row.expected);
    }
}

TEST(isCrw, looksForTheNameBehindTheLength)
{
    const struct {
        const char* name;
        std::string bytes;
        bool isCrw;
    } rows[] = {
        {"CRW", test::crwPicture(), true},
        {"another length", "II\xff\xff\xff\xffHEAPCCDR", true},
        {"another kind", "II\x1a\0\0\0HEAPJPGM"s, false},
        {"big-endian", "MM\0\0\0\x1aHEAPCCDR"s, false},
        {"cut", "II\x1a\0\0\0HEAPCCD"s, false},
        {"empty", "", false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        MemoryByteSource source(viewOf(row.bytes));
        EXPECT_EQ(isCrw(ByteBlock(source)), row.isCrw);
    }
}
