#include "pictures/pixels/jpeg_decode.h"

#include "tests/support/byte_views.h"
#include "tests/support/icc_profiles.h"
#include "tests/support/jpeg_pictures.h"

#include <gtest/gtest.h>

#include <string>

using namespace pinorama;

namespace {
using test::JpegKind;

const std::vector<std::uint32_t> kCorners = {test::kRed, test::kGreen, test::kBlue, test::kYellow};

std::optional<PixelImage> decode(const std::string& bytes, PixelSize box)
{
    MemoryByteSource source(test::viewOf(bytes));
    return decodeJpeg(ByteBlock(source), box);
}

PixelSize sizeOf(const std::string& bytes)
{
    MemoryByteSource source(test::viewOf(bytes));
    return jpegSize(ByteBlock(source));
}

// The same stream that claims to be `width` x `height` pixels large.
std::string withClaimedSize(std::string jpeg, int width, int height)
{
    for (const char* marker : {"\xff\xc0", "\xff\xc2"}) {
        const std::size_t frame = jpeg.find(marker);
        if (frame == std::string::npos) continue;
        jpeg[frame + 5] = static_cast<char>(height >> 8);
        jpeg[frame + 6] = static_cast<char>(height & 0xff);
        jpeg[frame + 7] = static_cast<char>(width >> 8);
        jpeg[frame + 8] = static_cast<char>(width & 0xff);
    }
    return jpeg;
}

TEST(jpegSize, readsTheHeadersOnly)
{
    const std::string jpeg = test::jpegOfQuarters(64, 48);
    EXPECT_EQ(sizeOf(jpeg), (PixelSize{64, 48}));
    EXPECT_EQ(sizeOf(jpeg.substr(0, jpeg.find("\xff\xda") + 20)), (PixelSize{64, 48}));
    EXPECT_EQ(sizeOf(jpeg.substr(0, jpeg.find("\xff\xc0"))), PixelSize{});
    EXPECT_EQ(sizeOf(""), PixelSize{});
    EXPECT_EQ(sizeOf("no picture"), PixelSize{});
}

TEST(decodeJpeg, decodesEveryKindAtEveryScale)
{
    for (const JpegKind kind :
         {JpegKind::baseline, JpegKind::progressive, JpegKind::cmykOfAdobe, JpegKind::cmyk}) {
        const std::string jpeg = test::jpegOfQuarters(512, 384, {.kind = kind});
        for (const int side : {16, 64, 65, 127, 200, 300, 600}) {
            SCOPED_TRACE("kind " + std::to_string(static_cast<int>(kind)) + ", side " +
                         std::to_string(side));
            const std::optional<PixelImage> image = decode(jpeg, {side, side});
            ASSERT_TRUE(image);
            const PixelSize expected = fitInto({512, 384}, {side, side});
            EXPECT_EQ((PixelSize{image->width, image->height}), expected);
            EXPECT_EQ(image->pixels.size(),
                      static_cast<std::size_t>(expected.width) * expected.height);
            EXPECT_TRUE(test::areNear(test::quartersOf(*image), kCorners));
        }
    }
}

TEST(decodeJpeg, showsGrayAsGray)
{
    const std::string jpeg = test::jpegOfQuarters(
        64, 64,
        {.kind = JpegKind::gray, .corners = {0xff000000, 0xff404040, 0xff808080, 0xffffffff}});
    const std::optional<PixelImage> image = decode(jpeg, {32, 32});
    ASSERT_TRUE(image);
    EXPECT_TRUE(test::areNear(test::quartersOf(*image),
                              {0xff000000, 0xff404040, 0xff808080, 0xffffffff}, 3));
}

TEST(decodeJpeg, convertsTheColoursOfAProfile)
{
    const std::uint32_t red = 0xffc86464;  // of Display P3
    const std::uint32_t converted = 0xffd75d61;
    const std::string plain = test::jpegOfQuarters(64, 64, {.corners = {red, red, red, red}});
    const auto colourOf = [](const std::string& jpeg, const std::string& whole) {
        MemoryByteSource source(test::viewOf(jpeg));
        MemoryByteSource wholeSource(test::viewOf(whole));
        const auto image = decodeJpeg(ByteBlock(source), {8, 8}, ByteBlock(wholeSource));
        return image ? image->pixels[0] : 0;
    };
    const std::string icc = test::iccDisplayP3();
    const std::string inPieces = test::withJpegProfile(plain, icc, 100);
    EXPECT_TRUE(test::isNear(colourOf(plain, ""), red, 3));
    EXPECT_TRUE(test::isNear(colourOf(test::withJpegProfile(plain, icc), ""), converted, 3));
    EXPECT_TRUE(test::isNear(colourOf(inPieces, ""), converted, 3));
    EXPECT_TRUE(test::isNear(colourOf(plain, inPieces), converted, 3)) << "a thumbnail";
    EXPECT_TRUE(
        test::isNear(colourOf(test::withJpegProfile(plain, test::iccSrgb()), inPieces), red, 3))
        << "a thumbnail with a profile of its own";
    EXPECT_TRUE(
        test::isNear(colourOf(test::withJpegProfile(plain, icc.substr(0, 200)), ""), red, 3))
        << "a profile that is cut off";

    const test::JpegOptions inks = {.kind = JpegKind::cmykOfAdobe, .corners = {red, red, red, red}};
    const std::string printed = test::withJpegProfile(test::jpegOfQuarters(64, 64, inks), icc);
    EXPECT_TRUE(test::isNear(colourOf(printed, ""), red, 3)) << "a profile of other channels";
}

TEST(decodeJpeg, keepsALineOfPixels)
{
    const std::optional<PixelImage> image = decode(test::jpegOfQuarters(2000, 1), {128, 128});
    ASSERT_TRUE(image);
    EXPECT_EQ(image->width, 128);
    EXPECT_EQ(image->height, 1);
}

TEST(decodeJpeg, showsTheBeginningOfATruncatedPicture)
{
    const std::string jpeg = test::jpegOfQuarters(
        256, 256, {.corners = {test::kRed, test::kRed, test::kBlue, test::kBlue}});
    const std::size_t scan = jpeg.find("\xff\xda");
    const std::optional<PixelImage> image =
        decode(jpeg.substr(0, scan + (jpeg.size() - scan) * 3 / 5), {64, 64});
    ASSERT_TRUE(image);
    EXPECT_EQ(image->height, 64);
    EXPECT_TRUE(test::isNear(image->pixels[64 * 8], test::kRed));
    EXPECT_TRUE(test::isNear(image->pixels[64 * 63], 0xff808080)) << image->pixels[64 * 63];
}

TEST(decodeJpeg, givesNothingWhereThereIsNothingToSee)
{
    const std::string jpeg = test::jpegOfQuarters(256, 256);
    const std::size_t scan = jpeg.find("\xff\xda");
    EXPECT_FALSE(decode("", {64, 64}));
    EXPECT_FALSE(decode("\xff\xd8", {64, 64}));
    EXPECT_FALSE(decode("\xff\xd8\xff\xd9", {64, 64}));
    EXPECT_FALSE(decode("\x89PNG\r\n", {64, 64}));
    EXPECT_FALSE(decode(jpeg.substr(0, scan), {64, 64}));
    EXPECT_FALSE(decode(jpeg.substr(0, scan + 14), {64, 64}));
    EXPECT_FALSE(decode(jpeg, {0, 64}));
    EXPECT_FALSE(decode(jpeg, {64, -1}));
}

TEST(decodeJpeg, everyCutIsHarmless)
{
    for (const JpegKind kind : {JpegKind::baseline, JpegKind::progressive}) {
        const std::string jpeg = test::jpegOfQuarters(80, 40, {.kind = kind});
        int shown = 0;
        for (std::size_t length = 0; length <= jpeg.size(); length++) {
            const std::optional<PixelImage> image = decode(jpeg.substr(0, length), {20, 20});
            if (!image) continue;
            shown++;
            EXPECT_EQ(image->width, 20);
            EXPECT_EQ(image->height, 10);
        }
        EXPECT_GT(shown, 0);
    }
}

TEST(decodeJpeg, doesNotMakeUpAPictureThatIsClaimedToBeHuge)
{
    // The stream ends after a few blocks; decoding goes no further than that.
    const std::string baseline = test::jpegOfQuarters(64, 64);
    const std::string progressive = test::jpegOfQuarters(64, 64, {.kind = JpegKind::progressive});
    EXPECT_FALSE(decode(withClaimedSize(baseline, 65500, 65500), {128, 128}));
    EXPECT_FALSE(decode(withClaimedSize(progressive, 65500, 65500), {128, 128}));
    EXPECT_FALSE(decode(withClaimedSize(baseline, 0, 64), {128, 128}));
    EXPECT_FALSE(decode(withClaimedSize(baseline, 65535, 64), {128, 128}));
}

TEST(decodeJpeg, stopsAtMoreScansThanAPictureNeeds)
{
    // Every further scan costs a pass; a stream can repeat its last one for ever.
    const std::string jpeg = test::jpegOfQuarters(512, 512, {.kind = JpegKind::progressive});
    const std::size_t lastScan = jpeg.rfind("\xff\xda");
    const std::string scan = jpeg.substr(lastScan, jpeg.size() - 2 - lastScan);
    std::string bomb = jpeg.substr(0, jpeg.size() - 2);
    for (int i = 0; i < 5000; i++) bomb += scan;
    EXPECT_FALSE(decode(bomb + "\xff\xd9", {400, 400}));
    // At 1/8 the first scan has everything, and nothing after it is looked at.
    EXPECT_TRUE(decode(bomb + "\xff\xd9", {64, 64}));
}
}  // namespace
