#include "pictures/pixels/colour_profile.h"

#include "tests/support/byte_views.h"
#include "tests/support/icc_profiles.h"
#include "tests/support/jpeg_pictures.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace pinorama;

namespace {
// What the pixels of an image become.
std::vector<std::uint32_t> converted(const std::string& icc, std::vector<std::uint32_t> pixels)
{
    const auto profile = ColourProfile::fromIcc(test::viewOf(icc));
    if (!profile) return {};
    PixelImage image = {static_cast<std::int32_t>(pixels.size()), 1, std::move(pixels)};
    profile->convertToSrgb(image);
    return image.pixels;
}

std::uint32_t convertedByCodes(int primaries, int transfer, std::uint32_t pixel)
{
    const auto profile = ColourProfile::fromCodes(primaries, transfer);
    if (!profile) return 0;
    PixelImage image = {1, 1, {pixel}};
    profile->convertToSrgb(image);
    return image.pixels[0];
}
}  // namespace

// The expected numbers are those of Little CMS 2.14 (relative colorimetric, clipped).
TEST(ColourProfile, convertsToSrgb)
{
    const struct {
        const char* name;
        std::string icc;
        std::uint32_t from;
        std::uint32_t to;
    } rows[] = {
        {"gray stays", test::iccDisplayP3(), 0xff808080, 0xff808080},
        {"white stays", test::iccDisplayP3(), 0xffffffff, 0xffffffff},
        {"black stays", test::iccDisplayP3(), 0xff000000, 0xff000000},
        {"a red of Display P3", test::iccDisplayP3(), 0xffc86464, 0xffd75d61},
        {"a green of Display P3", test::iccDisplayP3(), 0xff64c864, 0xff2dcb56},
        {"beyond sRGB", test::iccDisplayP3(), 0xff00ff00, 0xff00ff00},
        {"gamma 2.2 and wider primaries", test::iccAdobeRgb(), 0xff64c864, 0xff00c95c},
        {"gray of gamma 2.2", test::iccAdobeRgb(), 0xff808080, 0xff808080},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const auto pixels = converted(row.icc, {row.from});
        ASSERT_EQ(pixels.size(), 1u);
        EXPECT_TRUE(test::isNear(pixels[0], row.to, 2)) << std::hex << pixels[0];
    }
}

TEST(ColourProfile, readsEveryKindOfCurve)
{
    // Curves of one exponent, of a table and of each formula, all of gamma 2.0 or nearly so.
    std::string table = "curv" + std::string(4, '\0') + test::big32(257);
    for (std::uint32_t i = 0; i <= 256; i++) table += test::big16(i * i * 65535 / 65536);
    const std::string rows[] = {
        test::iccGamma(2.0),
        table,
        test::iccFormula(0, {2.0}),
        test::iccFormula(1, {2.0, 1.0, 0.0}),
        test::iccFormula(2, {2.0, 1.0, 0.0, 0.0}),
        test::iccFormula(3, {2.0, 1.0, 0.0, 0.0, 0.0}),
        test::iccFormula(4, {2.0, 1.0, 0.0, 0.0, 0.0, 0.0, 0.0}),
    };
    for (const std::string& curve : rows) {
        // The light of half the numbers is a quarter, which sRGB writes as 137.
        const auto pixels = converted(test::iccProfile(test::kSrgbPrimaries, curve), {0xff808080});
        ASSERT_EQ(pixels.size(), 1u);
        EXPECT_TRUE(test::isNear(pixels[0], 0xff898989, 1)) << std::hex << pixels[0];
    }
    const auto linear =
        converted(test::iccProfile(test::kSrgbPrimaries, test::iccGamma(1.0)), {0xff373737});
    ASSERT_EQ(linear.size(), 1u);
    EXPECT_TRUE(test::isNear(linear[0], 0xff808080, 1)) << std::hex << linear[0];
}

TEST(ColourProfile, keepsAlphaAndColoursMultipliedByIt)
{
    const auto pixels = converted(test::iccDisplayP3(), {0x00000000, 0x80643232, 0xffc86464});
    ASSERT_EQ(pixels.size(), 3u);
    EXPECT_EQ(pixels[0], 0u);
    EXPECT_EQ(pixels[1] >> 24, 0x80u);
    // Half of what the opaque pixel becomes.
    for (const int shift : {0, 8, 16}) {
        EXPECT_NEAR(pixels[1] >> shift & 0xff, (pixels[2] >> shift & 0xff) / 2.0, 2.0);
    }
}

TEST(ColourProfile, knowsSrgb)
{
    const auto srgb = ColourProfile::fromIcc(test::viewOf(test::iccSrgb()));
    ASSERT_TRUE(srgb);
    EXPECT_TRUE(srgb->isSrgb());
    const auto nearly = ColourProfile::fromIcc(
        test::viewOf(test::iccProfile(test::kSrgbPrimaries, test::iccGamma(2.2))));
    ASSERT_TRUE(nearly);
    EXPECT_TRUE(nearly->isSrgb());
    const auto other = ColourProfile::fromIcc(test::viewOf(test::iccDisplayP3()));
    ASSERT_TRUE(other);
    EXPECT_FALSE(other->isSrgb());
}

TEST(ColourProfile, refusesProfilesOfOtherKinds)
{
    const std::string good = test::iccDisplayP3();
    const auto with = [&good](std::size_t at, std::string_view bytes) {
        return std::string(good).replace(at, bytes.size(), bytes);
    };
    const struct {
        const char* name;
        std::string icc;
    } rows[] = {
        {"nothing", ""},
        {"a header alone", good.substr(0, 128)},
        {"of inks", with(16, "CMYK")},
        {"of Lab", with(20, "Lab ")},
        {"no profile", with(36, "none")},
        {"without a primary", with(132, "xxxx")},
        {"three equal primaries",
         test::iccProfile({{{0.4, 0.2, 0.1}, {0.4, 0.2, 0.1}, {0.4, 0.2, 0.1}}},
                          test::iccGamma(2.2))},
        {"a curve of an unknown kind",
         test::iccProfile(test::kSrgbPrimaries, "what" + std::string(16, '\0'))},
        {"an unknown formula", test::iccProfile(test::kSrgbPrimaries, test::iccFormula(5, {1.0}))},
        {"a table that is cut off",
         test::iccProfile(test::kSrgbPrimaries, "curv" + std::string(4, '\0') + test::big32(4000))},
        {"a formula that is cut off",
         test::iccProfile(test::kSrgbPrimaries, test::iccFormula(4, {1.0}))},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_FALSE(ColourProfile::fromIcc(test::viewOf(row.icc)));
    }
}

TEST(ColourProfile, survivesEveryDamage)
{
    const std::string good = test::iccDisplayP3();
    for (std::size_t size = 0; size < good.size(); size++) {
        (void)ColourProfile::fromIcc(test::viewOf(std::string(good, 0, size)));
    }
    for (std::size_t i = 0; i < good.size(); i++) {
        for (const char change : {'\xff', '\x80', '\x01'}) {
            std::string damaged = good;
            damaged[i] = static_cast<char>(damaged[i] ^ change);
            const auto pixels = converted(damaged, {0xffc86464, 0xff000000, 0xffffffff});
            for (const std::uint32_t pixel : pixels) EXPECT_EQ(pixel >> 24, 0xffu);
        }
    }
}

TEST(ColourProfile, knowsTheCodesOfVideo)
{
    EXPECT_FALSE(ColourProfile::fromCodes(1, 13)) << "sRGB";
    EXPECT_FALSE(ColourProfile::fromCodes(1, 1)) << "shown as sRGB";
    EXPECT_FALSE(ColourProfile::fromCodes(2, 2)) << "not stated";
    EXPECT_FALSE(ColourProfile::fromCodes(99, 13));
    EXPECT_FALSE(ColourProfile::fromCodes(12, 99));
    EXPECT_TRUE(test::isNear(convertedByCodes(12, 13, 0xffc86464), 0xffd75d61, 2)) << "Display P3";
    EXPECT_TRUE(test::isNear(convertedByCodes(9, 13, 0xff808080), 0xff808080, 1)) << "gray";
    EXPECT_TRUE(test::isNear(convertedByCodes(1, 8, 0xff373737), 0xff808080, 1)) << "linear";
}

TEST(ColourProfile, compressesBrightLights)
{
    for (const int transfer : {16, 18}) {
        SCOPED_TRACE(transfer);
        std::uint32_t before = 0;
        for (const std::uint32_t number : {0x20u, 0x60u, 0x90u, 0xc0u, 0xffu}) {
            const std::uint32_t gray =
                convertedByCodes(9, transfer, 0xff000000 | number * 0x010101) & 0xff;
            EXPECT_GE(gray, before);
            before = gray;
        }
        EXPECT_GE(before, 250u) << "the brightest is white";
    }
    // White paper is 203 cd/m2, 58 percent of PQ and 75 percent of HLG.
    EXPECT_NEAR(convertedByCodes(9, 16, 0xff949494) & 0xff, 188, 8);
    EXPECT_NEAR(convertedByCodes(9, 18, 0xffbfbfbf) & 0xff, 188, 8);
}
