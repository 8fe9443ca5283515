#include "pictures/pixels/picture_preview.h"

#include "pictures/picture_file.h"
#include "tests/support/byte_views.h"
#include "tests/support/environment.h"
#include "tests/support/jpeg_pictures.h"
#include "tests/support/picture_builder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <string>

using namespace pinorama;

namespace {
using test::JpegKind;

constexpr std::uint32_t kWhite = 0xffffffff;
constexpr std::uint32_t kBlack = 0xff000000;

const std::vector<std::uint32_t> kCorners = {test::kRed, test::kGreen, test::kBlue, test::kYellow};

std::optional<Preview> previewOf(const std::string& bytes, int width = 128, int height = 128)
{
    MemoryByteSource source(test::viewOf(bytes));
    return makePreview(source, width, height);
}

// A thumbnail of one colour, to be told from the picture's own quarters.
std::string whiteThumbnail(int width, int height)
{
    return test::jpegOfQuarters(width, height, {.corners = {kWhite, kWhite, kWhite, kWhite}});
}

std::string pictureWithThumbnail(int width, int height, const std::string& thumbnail,
                                 int orientation = 0)
{
    return test::jpegOfQuarters(width, height,
                                {.exif = test::exifWithThumbnail(orientation, thumbnail)});
}

TEST(makePreview, keepsTheAspectAndNeverEnlarges)
{
    const struct {
        const char* name;
        int width, height, boxWidth, boxHeight, expectedWidth, expectedHeight;
    } rows[] = {
        {"wide", 600, 400, 128, 128, 128, 85},   {"tall", 400, 600, 128, 128, 85, 128},
        {"small", 60, 40, 128, 128, 60, 40},     {"one pixel", 1, 1, 128, 128, 1, 1},
        {"flat box", 600, 400, 128, 20, 30, 20}, {"large box", 600, 400, 512, 512, 512, 341},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const std::optional<Preview> preview =
            previewOf(test::jpegOfQuarters(row.width, row.height), row.boxWidth, row.boxHeight);
        ASSERT_TRUE(preview);
        EXPECT_EQ(preview->image.width, row.expectedWidth);
        EXPECT_EQ(preview->image.height, row.expectedHeight);
        EXPECT_TRUE(preview->wasDecoded);
    }
}

// Where the stored corners red, green, blue, yellow come to lie.
const struct {
    int orientation;
    std::vector<std::uint32_t> upright;
} kOrientations[] = {
    {1, {test::kRed, test::kGreen, test::kBlue, test::kYellow}},
    {2, {test::kGreen, test::kRed, test::kYellow, test::kBlue}},
    {3, {test::kYellow, test::kBlue, test::kGreen, test::kRed}},
    {4, {test::kBlue, test::kYellow, test::kRed, test::kGreen}},
    {5, {test::kRed, test::kBlue, test::kGreen, test::kYellow}},
    {6, {test::kBlue, test::kRed, test::kYellow, test::kGreen}},
    {7, {test::kYellow, test::kGreen, test::kBlue, test::kRed}},
    {8, {test::kGreen, test::kYellow, test::kRed, test::kBlue}},
    {9, {test::kRed, test::kGreen, test::kBlue, test::kYellow}},
};

TEST(makePreview, turnsADecodedPictureUpright)
{
    for (const auto& row : kOrientations) {
        SCOPED_TRACE(row.orientation);
        const std::optional<Preview> preview =
            previewOf(pictureWithThumbnail(300, 200, "", row.orientation), 150, 90);
        ASSERT_TRUE(preview);
        const bool isTurned = isTransposed(row.orientation);
        EXPECT_EQ(preview->image.width, isTurned ? 60 : 135);
        EXPECT_EQ(preview->image.height, 90);
        EXPECT_TRUE(test::areNear(test::quartersOf(preview->image), row.upright));
    }
}

TEST(makePreview, turnsTheThumbnailWithThePicture)
{
    for (const auto& row : kOrientations) {
        SCOPED_TRACE(row.orientation);
        const std::string thumbnail = test::jpegOfQuarters(160, 120);
        const std::optional<Preview> preview =
            previewOf(pictureWithThumbnail(640, 480, thumbnail, row.orientation));
        ASSERT_TRUE(preview);
        EXPECT_FALSE(preview->wasDecoded);
        EXPECT_EQ(preview->image.width, isTransposed(row.orientation) ? 96 : 128);
        EXPECT_TRUE(test::areNear(test::quartersOf(preview->image), row.upright));
    }
}

TEST(makePreview, usesTheThumbnailOnlyWhenItServes)
{
    const struct {
        const char* name;
        int thumbnailWidth, thumbnailHeight, box;
        bool isUsed;
    } rows[] = {
        {"the picture's aspect", 160, 107, 128, true},
        {"exactly as large as asked for", 128, 85, 128, true},
        {"a pixel too small", 127, 85, 128, false},
        {"too small for a dense screen", 160, 107, 256, false},
        {"letter-boxed", 160, 120, 128, false},
        {"turned", 107, 160, 64, false},
        {"a place holder", 1, 1, 128, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const std::optional<Preview> preview = previewOf(
            pictureWithThumbnail(600, 400, whiteThumbnail(row.thumbnailWidth, row.thumbnailHeight)),
            row.box, row.box);
        ASSERT_TRUE(preview);
        EXPECT_EQ(preview->wasDecoded, !row.isUsed);
        EXPECT_TRUE(test::areNear(test::quartersOf(preview->image),
                                  row.isUsed ? std::vector<std::uint32_t>(4, kWhite) : kCorners));
    }
}

TEST(makePreview, decodesThePictureWhenItsThumbnailIsDamaged)
{
    const std::string thumbnail = whiteThumbnail(160, 107);
    const std::string headersOnly = thumbnail.substr(0, thumbnail.find("\xff\xda") + 14);
    for (const std::string& damaged :
         {headersOnly, std::string("no picture"), std::string("\xff")}) {
        const std::optional<Preview> preview = previewOf(pictureWithThumbnail(600, 400, damaged));
        ASSERT_TRUE(preview);
        EXPECT_TRUE(preview->wasDecoded);
        EXPECT_TRUE(test::areNear(test::quartersOf(preview->image), kCorners));
    }
}

TEST(makePreview, aThumbnailOutsideItsBlockIsNone)
{
    std::string exif = test::exifWithThumbnail(0, whiteThumbnail(160, 107));
    const std::size_t offsetTag = exif.find(std::string("\x02\x01\0\x04", 4));
    ASSERT_NE(offsetTag, std::string::npos);
    exif.replace(offsetTag + 8, 4, "\xff\xff\xff\xf0");
    const std::optional<Preview> preview =
        previewOf(test::jpegOfQuarters(600, 400, {.exif = exif}));
    ASSERT_TRUE(preview);
    EXPECT_TRUE(preview->wasDecoded);
}

TEST(makePreview, aLoopOfDirectoriesEnds)
{
    std::string exif = test::exifWithThumbnail(6, whiteThumbnail(160, 107));
    exif.replace(8 + 2 + 12, 4, std::string("\0\0\0\x08", 4));  // the next directory is this one
    const std::optional<Preview> preview =
        previewOf(test::jpegOfQuarters(600, 400, {.exif = exif}));
    ASSERT_TRUE(preview);
    EXPECT_EQ(preview->image.width, 85);
}

// A raw file as cameras lay it out: the first directory holds a small preview, a subdirectory a
// larger one, another tells the size of the picture.
std::string rawWithPreviews(const std::string& small, const std::string& large, int width,
                            int height, int orientation)
{
    constexpr test::ByteOrder order = test::ByteOrder::little;
    const auto size = [](const std::string& bytes) {
        return static_cast<std::uint32_t>(bytes.size());
    };
    const auto directories = [&](std::uint32_t sub1, std::uint32_t sub2, std::uint32_t data) {
        const std::string first = test::tiffDirectory(
            order, 8,
            {test::shortField(order, 0x0112, static_cast<std::uint16_t>(orientation)),
             {0x014a, 4, 2, test::bytes32(order, sub1) + test::bytes32(order, sub2)},
             test::longField(order, 0x0201, data),
             test::longField(order, 0x0202, size(small))});
        const std::string second = test::tiffDirectory(
            order, sub1,
            {test::shortField(order, 0x0103, 7), test::longField(order, 0x0111, data + size(small)),
             test::longField(order, 0x0117, size(large))});
        const std::string third =
            test::tiffDirectory(order, sub2,
                                {test::longField(order, 0x0100, static_cast<std::uint32_t>(width)),
                                 test::longField(order, 0x0101, static_cast<std::uint32_t>(height)),
                                 test::shortField(order, 0x0103, 1)});
        return std::array<std::string, 3>{first, second, third};
    };
    const auto trial = directories(0, 0, 0);
    const std::uint32_t sub1 = 8 + size(trial[0]);
    const std::uint32_t sub2 = sub1 + size(trial[1]);
    const std::uint32_t data = sub2 + size(trial[2]);
    const auto parts = directories(sub1, sub2, data);
    return "II" + test::bytes16(order, 42) + test::bytes32(order, 8) + parts[0] + parts[1] +
           parts[2] + small + large;
}

TEST(makePreview, takesTheSmallestPreviewOfARawFileThatSuffices)
{
    const std::string raw =
        rawWithPreviews(whiteThumbnail(150, 100), test::jpegOfQuarters(600, 400), 6000, 4000, 1);
    const std::optional<Preview> small = previewOf(raw, 128, 128);
    ASSERT_TRUE(small);
    EXPECT_TRUE(test::areNear(test::quartersOf(small->image), {kWhite, kWhite, kWhite, kWhite}));
    EXPECT_FALSE(small->wasDecoded);

    const std::optional<Preview> large = previewOf(raw, 256, 256);
    ASSERT_TRUE(large);
    EXPECT_EQ(large->image.width, 256);
    EXPECT_TRUE(test::areNear(test::quartersOf(large->image), kCorners));
}

TEST(makePreview, passesOverALetterBoxedPreviewOfARawFile)
{
    const std::string raw =
        rawWithPreviews(whiteThumbnail(160, 120), test::jpegOfQuarters(600, 400), 6000, 4000, 6);
    const std::optional<Preview> preview = previewOf(raw);
    ASSERT_TRUE(preview);
    EXPECT_EQ(preview->image.width, 85);
    EXPECT_EQ(preview->image.height, 128);
    EXPECT_TRUE(test::areNear(test::quartersOf(preview->image), kOrientations[5].upright));
}

TEST(makePreview, cutsTheBarsWhenThereIsNoOtherPreview)
{
    // The bars are the upper and the lower sixth.
    const std::string boxed =
        test::jpegOfQuarters(160, 120, {.corners = {kBlack, kBlack, kBlack, kBlack}});
    const std::optional<Preview> preview = previewOf(rawWithPreviews(boxed, "", 6000, 4000, 1));
    ASSERT_TRUE(preview);
    EXPECT_EQ(preview->image.width, 128);
    EXPECT_EQ(preview->image.height, 85);
}

TEST(makePreview, aRafFileShowsItsJpegPicture)
{
    const std::string jpeg = pictureWithThumbnail(600, 400, "", 6);
    const std::optional<Preview> preview = previewOf(test::rafPicture(jpeg));
    ASSERT_TRUE(preview);
    EXPECT_EQ(preview->image.width, 85);
    EXPECT_FALSE(preview->wasDecoded);
}

TEST(makePreview, aJpegPictureWithARawNameIsAJpegPicture)
{
    EXPECT_TRUE(previewOf(test::jpegOfQuarters(60, 40)));
}

TEST(makePreview, givesNothingForOtherBytes)
{
    const std::string png("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16);
    for (const std::string& bytes :
         {std::string(), std::string("\xff"), std::string("\xff\xd8"), std::string("text"), png,
          std::string(100, '\0'), std::string("II*\0\x08\0\0\0", 8), test::crwPicture(),
          std::string("FUJIFILMCCD-RAW"), std::string("\0MRM", 4)}) {
        EXPECT_FALSE(previewOf(bytes)) << testing::PrintToString(bytes);
    }
    EXPECT_FALSE(previewOf(test::jpegOfQuarters(60, 40), 0, 128));
    EXPECT_FALSE(previewOf(test::jpegOfQuarters(60, 40), 128, -1));
}

TEST(makePreview, everyPictureOfTheCollectionIsHarmlessAndFits)
{
    const std::optional<std::string> collection = test::pictureCollection();
    if (!collection) GTEST_SKIP() << "PINORAMA_PICTURE_COLLECTION is not set";

    constexpr int kSide = 128;
    int looked = 0;
    int shown = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(*collection)) {
        const PictureFile file(entry.path().string());
        if (!file.isOpen()) continue;
        SCOPED_TRACE(entry.path().filename().string());
        const auto start = std::chrono::steady_clock::now();
        FileByteSource source(file.descriptor(), file.size());
        const std::optional<Preview> preview = makePreview(source, kSide, kSide);
        // A bound that tells a hang from work, not a measurement.
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
        looked++;
        if (!preview) continue;
        shown++;
        EXPECT_GE(preview->image.width, 1);
        EXPECT_GE(preview->image.height, 1);
        EXPECT_LE(preview->image.width, kSide);
        EXPECT_LE(preview->image.height, kSide);
        EXPECT_EQ(preview->image.pixels.size(),
                  static_cast<std::size_t>(preview->image.width) * preview->image.height);
    }
    EXPECT_GT(looked, 100);
    EXPECT_GT(shown, looked * 3 / 4);
}
}  // namespace
