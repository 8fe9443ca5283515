#include "pictures/pixels/jpeg_encode.h"

#include "pictures/pixels/jpeg_decode.h"
#include "tests/support/byte_views.h"
#include "tests/support/jpeg_pictures.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

using namespace pinorama;

namespace {
// The picture of quarters in those pixels.
PixelImage quarters(std::int32_t width, std::int32_t height)
{
    PixelImage image{width, height, {}};
    for (std::int32_t y = 0; y < height; y++) {
        for (std::int32_t x = 0; x < width; x++) {
            const bool isLeft = x < width / 2;
            image.pixels.push_back(y < height / 2 ? (isLeft ? test::kRed : test::kGreen)
                                                  : (isLeft ? test::kBlue : test::kYellow));
        }
    }
    return image;
}
}  // namespace

TEST(encodeJpeg, keepsTheColours)
{
    const std::string jpeg = encodeJpeg(quarters(64, 48), 90);
    ASSERT_TRUE(jpeg.starts_with("\xff\xd8\xff"));
    MemoryByteSource source(test::viewOf(jpeg));
    const auto image = decodeJpeg(ByteBlock(source), {64, 48});
    ASSERT_TRUE(image);
    EXPECT_EQ(image->width, 64);
    EXPECT_EQ(image->height, 48);
    EXPECT_TRUE(test::areNear(test::quartersOf(*image),
                              {test::kRed, test::kGreen, test::kBlue, test::kYellow}));
}

TEST(encodeJpeg, encodesPicturesOfAnySize)
{
    for (const std::int32_t side : {1, 7, 8, 9, 255}) {
        EXPECT_TRUE(encodeJpeg(quarters(side, 1), 80).ends_with("\xff\xd9")) << side;
        EXPECT_TRUE(encodeJpeg(quarters(1, side), 80).ends_with("\xff\xd9")) << side;
    }
}

TEST(encodeJpeg, hasNothingForWhatIsNoPicture)
{
    EXPECT_EQ(encodeJpeg({}, 80), "");
    EXPECT_EQ(encodeJpeg({2, 2, {1, 2, 3}}, 80), "");
    EXPECT_EQ(encodeJpeg({-1, -1, {1}}, 80), "");
    EXPECT_EQ(encodeJpeg({70'000, 1, std::vector<std::uint32_t>(70'000)}, 80), "")
        << "more than the format has";
}
