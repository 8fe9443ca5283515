#include "pictures/pixels/heif_preview.h"

#include "tests/pictures/pixels/heif_parts.h"
#include "tests/support/byte_views.h"
#include "tests/support/container_builder.h"
#include "tests/support/heif_pictures.h"
#include "tests/support/icc_profiles.h"
#include "tests/support/jpeg_pictures.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace pinorama;

namespace {
using test::HeifPart;
using test::jpegPart;
using test::kCorners;
using test::previewOf;
using test::thumbnail;
using test::unknownPicture;
}  // namespace

TEST(makeHeifPreview, takesTheSmallestThumbnailThatWillDo)
{
    const std::vector<std::uint32_t> white(4, 0xffffffff);
    const std::string file = unknownPicture(
        600, 400, {jpegPart(300, 200, white), jpegPart(90, 60, white), jpegPart(150, 100)});
    const auto preview = previewOf(file);
    ASSERT_TRUE(preview);
    EXPECT_EQ(preview->image.width, 128);
    EXPECT_EQ(preview->image.height, 85);
    EXPECT_FALSE(preview->wasDecoded);
    EXPECT_TRUE(test::areNear(test::quartersOf(preview->image), kCorners));
}

TEST(makeHeifPreview, takesTheLargestThumbnailWhenNoneWillDo)
{
    const auto preview = previewOf(unknownPicture(600, 400, {jpegPart(30, 20), jpegPart(60, 40)}));
    ASSERT_TRUE(preview);
    EXPECT_EQ(preview->image.width, 60);
    EXPECT_EQ(preview->image.height, 40) << "never enlarged";
}

TEST(makeHeifPreview, passesOverThumbnailsOfAnotherAspectAndOfOtherImages)
{
    std::vector<HeifPart> parts = {{"????", "", {test::heifSize(600, 400)}},
                                   thumbnail(jpegPart(160, 160)),
                                   thumbnail(jpegPart(240, 160)),
                                   thumbnail(jpegPart(150, 100))};
    parts[3].to = {2};
    const auto preview = previewOf(test::heifPicture(parts), 64, 64);
    ASSERT_TRUE(preview);
    EXPECT_EQ(preview->image.height, 43);
}

TEST(makeHeifPreview, takesAPictureThatIsJpeg)
{
    const auto preview = previewOf(test::heifPicture({jpegPart(300, 200)}));
    ASSERT_TRUE(preview);
    EXPECT_TRUE(preview->wasDecoded);
    EXPECT_EQ(preview->image.height, 85);
}

TEST(makeHeifPreview, turnsImagesUpright)
{
    const struct {
        const char* name;
        bool isTall;
        std::vector<std::string> turns;
        std::vector<std::uint32_t> upright;
    } rows[] = {
        {"a quarter",
         true,
         {test::heifRotation(1)},
         {test::kGreen, test::kYellow, test::kRed, test::kBlue}},
        {"two",
         false,
         {test::heifRotation(2)},
         {test::kYellow, test::kBlue, test::kGreen, test::kRed}},
        {"three",
         true,
         {test::heifRotation(3)},
         {test::kBlue, test::kRed, test::kYellow, test::kGreen}},
        {"left and right",
         false,
         {test::heifMirror(1)},
         {test::kGreen, test::kRed, test::kYellow, test::kBlue}},
        {"top and bottom",
         false,
         {test::heifMirror(0)},
         {test::kBlue, test::kYellow, test::kRed, test::kGreen}},
        {"turned, then mirrored",
         true,
         {test::heifRotation(1), test::heifMirror(1)},
         {test::kYellow, test::kGreen, test::kBlue, test::kRed}},
        {"mirrored, then turned",
         true,
         {test::heifMirror(1), test::heifRotation(1)},
         {test::kRed, test::kBlue, test::kGreen, test::kYellow}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        HeifPart part = jpegPart(300, 200);
        part.properties = row.turns;
        const auto preview = previewOf(test::heifPicture({part}));
        ASSERT_TRUE(preview);
        EXPECT_TRUE(test::areNear(test::quartersOf(preview->image), row.upright));
        EXPECT_EQ(preview->image.width, row.isTall ? 85 : 128);
    }
}

TEST(makeHeifPreview, cutsTheStatedPartOut)
{
    const struct {
        const char* name;
        std::vector<std::string> changes;
        int box;
        PixelSize size;
        std::vector<std::uint32_t> quarters;
    } rows[] = {
        {"the middle", {test::heifPart(100, 100)}, 128, {100, 100}, kCorners},
        {"scaled down", {test::heifPart(200, 100)}, 64, {64, 32}, kCorners},
        {"the left upper quarter",
         {test::heifPart(150, 100, -75, -50)},
         128,
         {128, 85},
         {test::kRed, test::kRed, test::kRed, test::kRed}},
        {"the right half",
         {test::heifPart(150, 200, 75, 0)},
         64,
         {48, 64},
         {test::kGreen, test::kGreen, test::kYellow, test::kYellow}},
        {"the right half, turned",
         {test::heifPart(150, 200, 75, 0), test::heifRotation(1)},
         64,
         {64, 48},
         {test::kGreen, test::kYellow, test::kGreen, test::kYellow}},
        {"beyond the image", {test::heifPart(150, 100, 100, 0)}, 300, {300, 200}, kCorners},
        {"nothing", {test::heifPart(0, 100)}, 300, {300, 200}, kCorners},
        {"no fraction", {test::isoBox("clap", std::string(32, '\0'))}, 300, {300, 200}, kCorners},
        {"cut off", {test::isoBox("clap", "short")}, 300, {300, 200}, kCorners},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        HeifPart part = jpegPart(300, 200);
        part.properties = row.changes;
        const auto preview = previewOf(test::heifPicture({part}), row.box, row.box);
        ASSERT_TRUE(preview);
        EXPECT_EQ((PixelSize{preview->image.width, preview->image.height}), row.size);
        EXPECT_TRUE(test::areNear(test::quartersOf(preview->image), row.quarters));
    }
}

TEST(makeHeifPreview, showsTheColoursOfTheProfile)
{
    const std::uint32_t red = 0xffc86464;  // of Display P3
    const std::uint32_t converted = 0xffd75d61;
    const auto colourOf = [](const std::string& file) {
        const auto preview = previewOf(file);
        return preview ? preview->image.pixels[0] : 0;
    };
    const auto with = [&](const std::vector<std::string>& properties) {
        HeifPart part = jpegPart(300, 200, std::vector<std::uint32_t>(4, red));
        part.properties = properties;
        return part;
    };
    const std::string profile = test::heifProfile(test::iccDisplayP3());
    const struct {
        const char* name;
        std::string file;
        std::uint32_t colour;
    } rows[] = {
        {"none", test::heifPicture({with({})}), red},
        {"of sRGB", test::heifPicture({with({test::heifProfile(test::iccSrgb())})}), red},
        {"of Display P3", test::heifPicture({with({profile})}), converted},
        {"primaries", test::heifPicture({with({test::heifColours(6, true, 12, 13)})}), converted},
        {"a profile and primaries",
         test::heifPicture({with({test::heifColours(6, true, 1, 13), profile})}), converted},
        {"malformed", test::heifPicture({with({test::heifProfile("no profile")})}), red},
        {"of the picture, for a thumbnail", unknownPicture(600, 400, {with({})}, {profile}),
         converted},
        {"of the thumbnail",
         unknownPicture(600, 400, {with({test::heifProfile(test::iccSrgb())})}, {profile}), red},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_TRUE(test::isNear(colourOf(row.file), row.colour, 3))
            << std::hex << colourOf(row.file);
    }
    HeifPart own = with({profile});
    own.bytes = test::withJpegProfile(own.bytes, test::iccDisplayP3());
    EXPECT_TRUE(test::isNear(colourOf(test::heifPicture({own})), converted, 3)) << "only once";
}

TEST(makeMorePreview, findsTheJpegPicturesOfCr3)
{
    const std::string small = test::jpegOfQuarters(160, 120);
    const std::string large = test::jpegOfQuarters(300, 200);
    const std::string file = test::cr3Picture(test::exifWithThumbnail(6, ""), small, large);
    const auto preview = previewOf(file);
    ASSERT_TRUE(preview);
    EXPECT_FALSE(preview->wasDecoded);
    EXPECT_EQ(preview->image.width, 85) << "it stands on its side";
    EXPECT_EQ(preview->image.height, 128);
    EXPECT_TRUE(test::areNear(test::quartersOf(preview->image),
                              {test::kBlue, test::kRed, test::kYellow, test::kGreen}));
}

TEST(makeMorePreview, makesNoneOfVideosAndThatOfMakePreviewElsewhere)
{
    EXPECT_FALSE(previewOf(test::quickTimeFile("")));
    EXPECT_FALSE(previewOf(test::heifFile({})));
    EXPECT_FALSE(previewOf(""));
    EXPECT_TRUE(previewOf(test::jpegOfQuarters(30, 20)));
    EXPECT_FALSE(previewOf(test::heifPicture({jpegPart(30, 20)}), 0, 10));

    const std::string heic = test::heifPicture({jpegPart(30, 20)});
    MemoryByteSource source(test::viewOf(heic));
    EXPECT_FALSE(makePreview(source, 64, 64)) << "only where somebody asks for more";
}
