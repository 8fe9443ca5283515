#include "pictures/pixels/heif_preview.h"

#include "pictures/pixels/av1_image.h"
#include "pictures/pixels/hevc_image.h"
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

const std::vector<std::uint32_t> kCorners = {test::kRed, test::kGreen, test::kBlue, test::kYellow};
constexpr int kTolerance = 24;  // of colours that were coded with loss

std::optional<Preview> previewOf(const std::string& bytes, int width = 128, int height = 128)
{
    MemoryByteSource source(test::viewOf(bytes));
    return makeMorePreview(source, width, height);
}

HeifPart jpegPart(int width, int height, const std::vector<std::uint32_t>& corners = kCorners)
{
    return {"jpeg",
            test::jpegOfQuarters(width, height,
                                 {.corners = {corners[0], corners[1], corners[2], corners[3]}})};
}

HeifPart thumbnail(HeifPart part)
{
    part.reference = "thmb";
    part.to = {1};
    return part;
}

// A picture that nothing here can decode, with thumbnails.
std::string unknownPicture(int width, int height, const std::vector<HeifPart>& thumbnails,
                           const std::vector<std::string>& more = {})
{
    std::vector<HeifPart> parts = {{"????", "bytes", {test::heifSize(width, height)}}};
    for (const std::string& property : more) parts[0].properties.push_back(property);
    for (const HeifPart& part : thumbnails) parts.push_back(thumbnail(part));
    return test::heifPicture(parts);
}

// A picture of 100 x 60 in two rows of two tiles; more tiles of these parts are possible.
std::string gridOfTiles(const std::vector<HeifPart>& tiles, int rows = 2, int columns = 2,
                        int width = 100, int height = 60)
{
    std::vector<HeifPart> parts = {
        {"grid", test::heifGrid(rows, columns, width, height), {}, "dimg", {}}};
    parts[0].properties.push_back(test::heifSize(width, height));
    for (const HeifPart& tile : tiles) {
        parts.push_back(tile);
        parts[0].to.push_back(static_cast<int>(parts.size()));
    }
    return test::heifPicture(parts);
}

bool canDecodeHevc()
{
    return loadHevcDecoder();
}
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

TEST(makeHeifPreview, decodesHevcWhereItsDecoderIs)
{
    if (!canDecodeHevc()) GTEST_SKIP() << "libde265 is not installed";
    const auto preview = previewOf(test::heifPicture({test::hevcPart()}));
    ASSERT_TRUE(preview);
    EXPECT_TRUE(preview->wasDecoded);
    EXPECT_EQ(preview->image.width, 64);
    EXPECT_EQ(preview->image.height, 64);
    EXPECT_TRUE(test::areNear(test::quartersOf(preview->image), kCorners, kTolerance));

    const auto small = previewOf(unknownPicture(640, 640, {test::hevcPart()}), 32, 32);
    ASSERT_TRUE(small);
    EXPECT_FALSE(small->wasDecoded) << "it is a thumbnail";
    EXPECT_EQ(small->image.width, 32);
    EXPECT_TRUE(test::areNear(test::quartersOf(small->image), kCorners, kTolerance));
}

TEST(makeHeifPreview, decodesAv1WhereItsDecoderIs)
{
    if (!loadAv1Decoder()) GTEST_SKIP() << "dav1d is not installed";
    const auto preview = previewOf(test::heifPicture({test::av1Part()}));
    ASSERT_TRUE(preview);
    EXPECT_TRUE(preview->wasDecoded);
    EXPECT_EQ(preview->image.width, 64);
    EXPECT_EQ(preview->image.height, 64);
    EXPECT_TRUE(test::areNear(test::quartersOf(preview->image), kCorners));

    HeifPart named = test::av1Part();
    named.properties.push_back(test::heifColours(1, true));
    const auto other = previewOf(test::heifPicture({named}));
    ASSERT_TRUE(other);
    EXPECT_FALSE(test::areNear(test::quartersOf(other->image), kCorners))
        << "by what the file says";

    const HeifPart tile = test::av1Part();
    const auto grid = previewOf(gridOfTiles({tile, tile, tile, tile}, 2, 2, 100, 100));
    ASSERT_TRUE(grid);
    EXPECT_TRUE(test::isNear(grid->image.pixels[80 * 100 + 16], test::kRed));
}

TEST(makeHeifPreview, survivesEveryDamageOfAv1)
{
    if (!loadAv1Decoder()) GTEST_SKIP() << "dav1d is not installed";
    const std::string file = test::heifPicture({test::av1Part()});
    for (std::size_t size = 0; size < file.size(); size += 3) {
        (void)previewOf(file.substr(0, size));
    }
    for (std::size_t i = 0; i < file.size(); i++) {
        std::string damaged = file;
        damaged[i] = static_cast<char>(damaged[i] ^ (i % 2 == 0 ? 0xff : 0x10));
        const auto preview = previewOf(damaged, 32, 32);
        if (preview) {
            EXPECT_LE(preview->image.width, 32);
        }
    }
}

TEST(makeHeifPreview, leavesOutWhatIsCodedBeyondTheStatedSize)
{
    if (!canDecodeHevc()) GTEST_SKIP() << "libde265 is not installed";
    HeifPart part = test::hevcPart();
    part.properties[1] = test::heifSize(48, 40);
    const auto preview = previewOf(test::heifPicture({part}));
    ASSERT_TRUE(preview);
    EXPECT_EQ(preview->image.width, 48);
    EXPECT_EQ(preview->image.height, 40);
    EXPECT_TRUE(test::isNear(preview->image.pixels.front(), test::kRed, kTolerance));
    EXPECT_TRUE(test::isNear(preview->image.pixels.back(), test::kYellow, kTolerance));

    part.properties[1] = test::heifSize(100, 100);
    const auto whole = previewOf(test::heifPicture({part}));
    ASSERT_TRUE(whole);
    EXPECT_EQ(whole->image.width, 64) << "there is no more of it";
}

TEST(makeHeifPreview, putsTilesTogether)
{
    if (!canDecodeHevc()) GTEST_SKIP() << "libde265 is not installed";
    const HeifPart tile = test::hevcPart();
    const auto preview = previewOf(gridOfTiles({tile, tile, tile, tile}, 2, 2, 128, 128));
    ASSERT_TRUE(preview);
    EXPECT_TRUE(preview->wasDecoded);
    ASSERT_EQ(preview->image.width, 128);
    ASSERT_EQ(preview->image.height, 128);
    // The quarters of each tile again.
    const auto at = [&](std::size_t x, std::size_t y) {
        return preview->image.pixels[y * 128 + x];
    };
    for (const std::size_t left : {0u, 64u}) {
        for (const std::size_t top : {0u, 64u}) {
            EXPECT_TRUE(test::isNear(at(left + 16, top + 16), test::kRed, kTolerance));
            EXPECT_TRUE(test::isNear(at(left + 48, top + 16), test::kGreen, kTolerance));
            EXPECT_TRUE(test::isNear(at(left + 16, top + 48), test::kBlue, kTolerance));
            EXPECT_TRUE(test::isNear(at(left + 48, top + 48), test::kYellow, kTolerance));
        }
    }
    const auto cropped = previewOf(gridOfTiles({tile, tile, tile, tile}));
    ASSERT_TRUE(cropped);
    EXPECT_EQ(cropped->image.width, 100);
    EXPECT_EQ(cropped->image.height, 60);
}

TEST(makeHeifPreview, showsTheRowsOfAGridThatAreThere)
{
    if (!canDecodeHevc()) GTEST_SKIP() << "libde265 is not installed";
    const HeifPart tile = test::hevcPart();
    HeifPart damaged = tile;
    damaged.bytes = std::string(80, '\xff');
    const auto preview = previewOf(gridOfTiles({tile, tile, tile, damaged}, 2, 2, 128, 128));
    ASSERT_TRUE(preview);
    EXPECT_TRUE(test::isNear(preview->image.pixels[16 * 128 + 16], test::kRed, kTolerance));
    EXPECT_EQ(preview->image.pixels[100 * 128 + 16], 0xff808080);
    EXPECT_FALSE(previewOf(gridOfTiles({damaged, tile, tile, tile})));
}

TEST(makeHeifPreview, refusesGridsThatAreNone)
{
    const HeifPart tile = test::hevcPart();
    EXPECT_FALSE(previewOf(gridOfTiles({tile, tile, tile}))) << "a tile is missing";
    EXPECT_FALSE(previewOf(gridOfTiles({tile}, 1, 1, 100, 60))) << "the tile is too small";
    EXPECT_FALSE(previewOf(gridOfTiles({tile}, 1, 1, 0, 60)));
    EXPECT_FALSE(previewOf(gridOfTiles({jpegPart(64, 64)}, 1, 1, 64, 64)));
    std::vector<HeifPart> itself = {{"grid", test::heifGrid(1, 1, 64, 64), {}, "dimg", {1}}};
    EXPECT_FALSE(previewOf(test::heifPicture(itself)));
}

TEST(makeHeifPreview, takesTheColoursThatTheFileNames)
{
    if (!canDecodeHevc()) GTEST_SKIP() << "libde265 is not installed";
    HeifPart part = test::hevcPart();
    part.properties.push_back(test::heifColours(1, true));
    const auto other = previewOf(test::heifPicture({part}));
    ASSERT_TRUE(other);
    EXPECT_FALSE(test::areNear(test::quartersOf(other->image), kCorners, kTolerance));
    EXPECT_TRUE(test::areNear(test::quartersOf(other->image), kCorners, 100));
}

TEST(makeHeifPreview, survivesEveryDamage)
{
    const HeifPart tile = test::hevcPart();
    const std::string files[] = {
        gridOfTiles({tile, tile, tile, tile}),
        test::heifPicture({tile, thumbnail(jpegPart(16, 16)), thumbnail(tile)})};
    for (const std::string& file : files) {
        for (std::size_t size = 0; size < file.size(); size += 23)
            (void)previewOf(file.substr(0, size));
        for (std::size_t i = 0; i < file.size(); i += 17) {
            std::string damaged = file;
            damaged[i] = static_cast<char>(damaged[i] ^ (i % 2 == 0 ? 0xff : 0x10));
            const auto preview = previewOf(damaged, 64, 64);
            if (preview) {
                EXPECT_LE(preview->image.width, 64);
                EXPECT_LE(preview->image.height, 64);
            }
        }
    }
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
