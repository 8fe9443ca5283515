// The colours of previews that the toolkit's plug-ins decode in the sandbox.

#include "tests/previews/preview_fixture.h"

#include <QColorSpace>

// The suites are named after what they test, which they hide here.
namespace pinorama::tests {
class ColourProfile : public test::PreviewTest {
protected:
    // A PNG of one colour with that colour space, if it is valid.
    std::string png(const char* name, QColor colour, const QColorSpace& space) const
    {
        QImage image(600, 400, QImage::Format_ARGB32);
        image.fill(colour);
        image.setColorSpace(space);
        std::string path = folder_.file(name);
        EXPECT_TRUE(image.save(QString::fromStdString(path), "PNG"));
        return path;
    }

    static std::uint32_t shownColour(const std::string& path)
    {
        const std::vector<std::uint32_t> quarters = test::quartersOf(test::pictureOf(path));
        return quarters.empty() ? 0 : quarters[0];
    }
};

TEST_F(ColourProfile, convertsPicturesOfThePlugins)
{
    const QColor red(0xc8, 0x64, 0x64);
    const std::uint32_t srgb = 0xffc86464;
    EXPECT_TRUE(test::isNear(shownColour(png("none.png", red, {})), srgb, 1));
    EXPECT_TRUE(test::isNear(shownColour(png("srgb.png", red, QColorSpace::SRgb)), srgb, 1));
    EXPECT_TRUE(
        test::isNear(shownColour(png("p3.png", red, QColorSpace::DisplayP3)), 0xffd75d61, 3));
    EXPECT_TRUE(
        test::isNear(shownColour(png("adobe.png", red, QColorSpace::AdobeRgb)), 0xffe36464, 3));
}
}  // namespace pinorama::tests
