// Previews of Photoshop documents.

#include "pictures/pixels/picture_preview.h"

#include "tests/support/byte_views.h"
#include "tests/support/container_builder.h"
#include "tests/support/jpeg_pictures.h"
#include "tests/support/picture_builder.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <random>
#include <string>

using namespace pinorama;

namespace {
constexpr std::uint16_t kThumbnail = 0x040c;

// A document with that thumbnail.
std::string psdWith(const std::string& jpeg)
{
    using namespace std::string_literals;
    const std::string header = "\0\0\0\1"s + std::string(24, '\7');
    return test::psdFile(test::photoshopResource(kThumbnail, header + jpeg));
}

std::optional<Preview> previewOf(const std::string& bytes, int width = 128, int height = 128)
{
    MemoryByteSource source(test::viewOf(bytes));
    return makeMorePreview(source, width, height);
}
}  // namespace

TEST(makeMorePreview, takesTheThumbnailOfAPhotoshopDocument)
{
    const std::string file = psdWith(test::jpegOfQuarters(160, 120));
    const auto preview = previewOf(file);
    ASSERT_TRUE(preview);
    EXPECT_FALSE(preview->wasDecoded);
    EXPECT_EQ(preview->image.width, 128);
    EXPECT_EQ(preview->image.height, 96);
    EXPECT_TRUE(test::areNear(test::quartersOf(preview->image),
                              {test::kRed, test::kGreen, test::kBlue, test::kYellow}));
    EXPECT_FALSE(previewOf(file, 0, 128));
    EXPECT_FALSE(previewOf(test::psdFile("")));
}

TEST(makeMorePreview, aDamagedPhotoshopDocumentIsHarmless)
{
    const std::string file = psdWith(test::jpegOfQuarters(64, 48));
    for (std::size_t size = 0; size < file.size(); size += 7) (void)previewOf(file.substr(0, size));
    std::mt19937 random(1);
    for (int i = 0; i < 500; i++) {
        std::string damaged = file;
        for (int flips = 0; flips < 4; flips++) {
            damaged[random() % damaged.size()] ^= static_cast<char>(1 << random() % 8);
        }
        const auto preview = previewOf(damaged);
        if (!preview) continue;
        EXPECT_LE(preview->image.width, 128);
        EXPECT_LE(preview->image.height, 128);
    }
}
