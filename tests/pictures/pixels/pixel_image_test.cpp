#include "pictures/pixels/pixel_image.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

using namespace pinorama;

namespace {

TEST(fitInto, keepsTheAspectAndNeverEnlarges)
{
    const struct {
        const char* name;
        PixelSize picture, box, expected;
    } rows[] = {
        {"wide", {6000, 4000}, {128, 128}, {128, 85}},
        {"tall", {4000, 6000}, {128, 128}, {85, 128}},
        {"square", {300, 300}, {128, 128}, {128, 128}},
        {"the box's own size", {128, 128}, {128, 128}, {128, 128}},
        {"smaller than the box", {100, 50}, {128, 128}, {100, 50}},
        {"one side larger", {200, 50}, {128, 128}, {128, 32}},
        {"box of another aspect", {400, 300}, {100, 30}, {40, 30}},
        {"rounding up", {3, 2}, {2, 2}, {2, 1}},
        {"a line keeps one pixel", {65500, 1}, {128, 128}, {128, 1}},
        {"a column keeps one pixel", {1, 65500}, {128, 128}, {1, 128}},
        {"box of one pixel", {640, 480}, {1, 1}, {1, 1}},
        {"nothing to fit", {0, 10}, {128, 128}, {0, 0}},
        {"negative picture", {-5, 10}, {128, 128}, {0, 0}},
        {"no box", {10, 10}, {0, 128}, {0, 0}},
        {"largest numbers", {INT32_MAX, INT32_MAX}, {128, 128}, {128, 128}},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(fitInto(row.picture, row.box), row.expected) << row.name;
    }
}

TEST(hasAspectOf, allowsThreePercentAndARoundedPixel)
{
    const PixelSize camera = {6000, 4000};
    EXPECT_TRUE(hasAspectOf({160, 107}, camera, 0.03));
    EXPECT_TRUE(hasAspectOf({160, 104}, camera, 0.03));
    EXPECT_FALSE(hasAspectOf({160, 102}, camera, 0.03));
    EXPECT_FALSE(hasAspectOf({160, 120}, camera, 0.03));
    EXPECT_FALSE(hasAspectOf({107, 160}, camera, 0.03));
    EXPECT_TRUE(hasAspectOf({16, 11}, camera, 0.03));
    EXPECT_FALSE(hasAspectOf({0, 0}, camera, 0.03));
    EXPECT_FALSE(hasAspectOf({160, 107}, {0, 4000}, 0.03));
}

// The pixels 1 to 6 in two rows of three, as a picture with the orientation stores them.
TEST(turnedUpright, knowsAllEightOrientations)
{
    const std::vector<std::uint32_t> upright = {1, 2, 3, 4, 5, 6};
    const struct {
        int orientation;
        std::int32_t width;
        std::vector<std::uint32_t> stored;
    } rows[] = {
        {1, 3, {1, 2, 3, 4, 5, 6}}, {2, 3, {3, 2, 1, 6, 5, 4}},  {3, 3, {6, 5, 4, 3, 2, 1}},
        {4, 3, {4, 5, 6, 1, 2, 3}}, {5, 2, {1, 4, 2, 5, 3, 6}},  {6, 2, {3, 6, 2, 5, 1, 4}},
        {7, 2, {6, 3, 5, 2, 4, 1}}, {8, 2, {4, 1, 5, 2, 6, 3}},  {0, 3, {1, 2, 3, 4, 5, 6}},
        {9, 3, {1, 2, 3, 4, 5, 6}}, {-1, 3, {1, 2, 3, 4, 5, 6}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.orientation);
        const PixelImage image =
            turnedUpright({row.width, 6 / row.width, row.stored}, row.orientation);
        EXPECT_EQ(image.width, 3);
        EXPECT_EQ(image.height, 2);
        EXPECT_EQ(image.pixels, upright);
    }
}

TEST(withoutBars, cutsBarsAndLeavesPictures)
{
    constexpr std::uint32_t black = 0xff000000;
    constexpr std::uint32_t white = 0xffffffff;
    PixelImage boxed = {9, 9, std::vector<std::uint32_t>(81, black)};
    for (int y = 2; y < 7; y++) std::fill_n(boxed.pixels.begin() + 9 * y, 9, white);

    const PixelImage cut = withoutBars(boxed, {1800, 1000});
    EXPECT_EQ(cut.width, 9);
    EXPECT_EQ(cut.height, 5);
    EXPECT_EQ(cut.pixels, std::vector<std::uint32_t>(45, white));

    const PixelImage columns = withoutBars(turnedUpright(boxed, 6), {1000, 1800});
    EXPECT_EQ(columns.width, 5);
    EXPECT_EQ(columns.height, 9);

    boxed.pixels[0] = white;  // a bright corner: no bar
    EXPECT_EQ(withoutBars(boxed, {1800, 1000}).height, 9);
    EXPECT_EQ(withoutBars(boxed, {0, 0}).height, 9);
    EXPECT_EQ(withoutBars(boxed, {1, INT32_MAX}).height, 9);
    EXPECT_EQ(withoutBars({}, {3, 2}).width, 0);
}

PixelImage scaled(PixelSize from, PixelSize to, const std::vector<std::uint32_t>& pixels)
{
    RowScaler scaler(from, to);
    for (std::int32_t y = 0; y < from.height; y++) scaler.addRow(&pixels[y * from.width]);
    EXPECT_EQ(scaler.rowsMissing(), 0);
    return scaler.take(0);
}

TEST(RowScaler, copiesAtTheSameSize)
{
    const std::vector<std::uint32_t> pixels = {0xff010203, 0x80102030, 0, 0xffffffff};
    EXPECT_EQ(scaled({2, 2}, {2, 2}, pixels).pixels, pixels);
}

TEST(RowScaler, givesTheMeanOfTheAreaThatAPixelCovers)
{
    // Three columns onto two: the middle one goes half to each side.
    EXPECT_EQ(scaled({3, 1}, {2, 1}, {0xff000000, 0xff000030, 0xff000060}).pixels,
              (std::vector<std::uint32_t>{0xff000010, 0xff000050}));
    EXPECT_EQ(scaled({1, 3}, {1, 2}, {0xff000000, 0xff003000, 0xff006000}).pixels,
              (std::vector<std::uint32_t>{0xff001000, 0xff005000}));
    EXPECT_EQ(scaled({2, 2}, {1, 1}, {0x00000000, 0x04040404, 0x08080808, 0x0c0c0c0c}).pixels,
              (std::vector<std::uint32_t>{0x06060606}));
}

TEST(RowScaler, keepsOneColourExactly)
{
    const PixelSize from = {97, 61};
    for (const PixelSize to : {PixelSize{96, 60}, {50, 61}, {97, 7}, {13, 11}, {1, 1}}) {
        const PixelImage image = scaled(from, to, std::vector<std::uint32_t>(97 * 61, 0xff7f01fe));
        EXPECT_EQ(image.pixels, std::vector<std::uint32_t>(
                                    static_cast<std::size_t>(to.width) * to.height, 0xff7f01fe))
            << to.width << " x " << to.height;
    }
}

TEST(RowScaler, fillsRowsThatNeverCome)
{
    RowScaler scaler({2, 4}, {2, 2});
    const std::uint32_t row[] = {0xff000000, 0xff000000};
    scaler.addRow(row);
    scaler.addRow(row);
    EXPECT_EQ(scaler.rowsMissing(), 2);
    EXPECT_EQ(scaler.take(0xffffffff).pixels,
              (std::vector<std::uint32_t>{0xff000000, 0xff000000, 0xffffffff, 0xffffffff}));
}

TEST(RowScaler, ignoresRowsAfterTheLastAndSizesThatGrow)
{
    const std::uint32_t row[] = {1, 2, 3, 4};
    RowScaler full({2, 1}, {2, 1});
    full.addRow(row);
    full.addRow(row + 2);
    EXPECT_EQ(full.take(0).pixels, (std::vector<std::uint32_t>{1, 2}));

    for (const PixelSize to : {PixelSize{3, 1}, {2, 2}, {0, 1}}) {
        RowScaler growing({2, 1}, to);
        growing.addRow(row);
        EXPECT_EQ(growing.take(0).width, 0) << to.width << " x " << to.height;
    }
}
}  // namespace
