// HEIF pictures that the decoders of HEVC and AV1 show, alone and as the tiles of a grid.

#include "pictures/pixels/heif_preview.h"

#include "pictures/pixels/av1_image.h"
#include "pictures/pixels/hevc_image.h"
#include "tests/pictures/pixels/heif_parts.h"
#include "tests/support/heif_pictures.h"
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

constexpr int kTolerance = 24;  // of colours that were coded with loss

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

// Cuts a file off every so many bytes, and changes a byte every so many: a preview is not larger
// than the box.
void expectToSurviveDamage(const std::string& file, std::size_t cutStep, std::size_t changeStep,
                           int box)
{
    for (std::size_t size = 0; size < file.size(); size += cutStep)
        (void)previewOf(file.substr(0, size));
    for (std::size_t i = 0; i < file.size(); i += changeStep) {
        std::string damaged = file;
        damaged[i] = static_cast<char>(damaged[i] ^ (i % 2 == 0 ? 0xff : 0x10));
        const auto preview = previewOf(damaged, box, box);
        if (preview) {
            EXPECT_LE(preview->image.width, box);
            EXPECT_LE(preview->image.height, box);
        }
    }
}
}  // namespace

TEST(makeHeifPreview, decodesHevcWhereItsDecoderIs)
{
    if (!loadHevcDecoder()) GTEST_SKIP() << "libde265 is not installed";
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

TEST(makeHeifPreview, leavesOutWhatIsCodedBeyondTheStatedSize)
{
    if (!loadHevcDecoder()) GTEST_SKIP() << "libde265 is not installed";
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
    if (!loadHevcDecoder()) GTEST_SKIP() << "libde265 is not installed";
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
    if (!loadHevcDecoder()) GTEST_SKIP() << "libde265 is not installed";
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
    if (!loadHevcDecoder()) GTEST_SKIP() << "libde265 is not installed";
    HeifPart part = test::hevcPart();
    part.properties.push_back(test::heifColours(1, true));
    const auto other = previewOf(test::heifPicture({part}));
    ASSERT_TRUE(other);
    EXPECT_FALSE(test::areNear(test::quartersOf(other->image), kCorners, kTolerance));
    EXPECT_TRUE(test::areNear(test::quartersOf(other->image), kCorners, 100));
}

TEST(makeHeifPreview, survivesEveryDamageOfAv1)
{
    if (!loadAv1Decoder()) GTEST_SKIP() << "dav1d is not installed";
    expectToSurviveDamage(test::heifPicture({test::av1Part()}), 3, 1, 32);
}

TEST(makeHeifPreview, survivesEveryDamage)
{
    const HeifPart tile = test::hevcPart();
    expectToSurviveDamage(gridOfTiles({tile, tile, tile, tile}), 23, 17, 64);
    expectToSurviveDamage(test::heifPicture({tile, thumbnail(jpegPart(16, 16)), thumbnail(tile)}),
                          23, 17, 64);
}
