#include "pictures/pixels/jxl_image.h"

#include "pictures/pixels/picture_preview.h"
#include "tests/support/byte_views.h"
#include "tests/support/container_builder.h"
#include "tests/support/heif_pictures.h"
#include "tests/support/jpeg_pictures.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace pinorama;

namespace {
const std::vector<std::uint32_t> kCorners = {test::kRed, test::kGreen, test::kBlue, test::kYellow};

std::optional<Preview> previewOf(const std::string& bytes, int side = 128)
{
    MemoryByteSource source(test::viewOf(bytes));
    return makeMorePreview(source, side, side);
}

std::string inContainer()
{
    return test::jxlFile(test::exifWithThumbnail(1, ""), "", test::jxlQuarters());
}
}  // namespace

TEST(decodeJxl, decodesWhereItsDecoderIs)
{
    if (!loadJxlDecoder()) GTEST_SKIP() << "libjxl is not installed";
    for (const std::string& file : {test::jxlQuarters(), inContainer()}) {
        const auto preview = previewOf(file);
        ASSERT_TRUE(preview);
        EXPECT_TRUE(preview->wasDecoded);
        EXPECT_EQ(preview->image.width, 64);
        EXPECT_EQ(preview->image.height, 64);
        EXPECT_TRUE(test::areNear(test::quartersOf(preview->image), kCorners, 2));
        const auto small = previewOf(file, 20);
        ASSERT_TRUE(small);
        EXPECT_EQ(small->image.width, 20);
    }
}

TEST(decodeJxl, survivesEveryDamage)
{
    if (!loadJxlDecoder()) GTEST_SKIP() << "libjxl is not installed";
    const std::string file = inContainer();
    for (std::size_t size = 0; size < file.size(); size++) (void)previewOf(file.substr(0, size));
    for (std::size_t i = 0; i < file.size(); i++) {
        for (const char change : {'\xff', '\x10'}) {
            std::string damaged = file;
            damaged[i] = static_cast<char>(damaged[i] ^ change);
            const auto preview = previewOf(damaged, 32);
            if (preview) {
                EXPECT_LE(preview->image.width, 32);
            }
        }
    }
}

TEST(makeMorePreview, takesTheExifThumbnailOfWhatCannotBeDecoded)
{
    const std::string tiff = test::exifWithThumbnail(1, test::jpegOfQuarters(160, 120));
    const std::string files[] = {
        test::jxlFile(tiff, ""),
        test::heifFile({.items = {{"????", "no image"}, {"Exif", test::heifExif(tiff)}}}),
    };
    for (const std::string& file : files) {
        const auto preview = previewOf(file);
        ASSERT_TRUE(preview);
        EXPECT_FALSE(preview->wasDecoded);
        EXPECT_EQ(preview->image.width, 128);
        EXPECT_TRUE(test::areNear(test::quartersOf(preview->image), kCorners));
    }
    EXPECT_FALSE(previewOf(test::jxlFile("", "")));
}
