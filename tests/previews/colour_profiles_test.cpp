// The colours of previews that the toolkit's plug-ins decode in the sandbox.

#include "tests/previews/preview_fixture.h"

#include <QColorSpace>
#include <QImageReader>

#include <ios>

// The suites are named after what they test, which they hide here.
namespace pinorama::tests {
class ColourProfile : public test::PreviewTest {
protected:
    // A picture of one colour with that colour space, if it is valid. The name says its format.
    std::string picture(const std::string& name, QColor colour, const QColorSpace& space) const
    {
        QImage image(600, 400, QImage::Format_ARGB32);
        image.fill(colour);
        image.setColorSpace(space);
        std::string path = folder_.file(name);
        constexpr int kLossless = 100;  // of WebP
        EXPECT_TRUE(image.save(QString::fromStdString(path), nullptr, kLossless));
        return path;
    }

    static std::uint32_t shownColour(const std::string& path)
    {
        const std::vector<std::uint32_t> quarters = test::quartersOf(test::pictureOf(path));
        return quarters.empty() ? 0 : quarters[0];
    }
};

class ColourProfileOfFormat : public ColourProfile,
                              public testing::WithParamInterface<const char*> {};

TEST_P(ColourProfileOfFormat, isApplied)
{
    const std::string ending = GetParam();
    if (!QImageReader::supportedImageFormats().contains(QByteArray::fromStdString(ending))) {
        GTEST_SKIP() << "the plug-in is not installed";
    }
    const QColor red(0xc8, 0x64, 0x64);
    const struct {
        const char* name;
        QColorSpace space;
        std::uint32_t expected;
        int tolerance;
    } rows[] = {{"none", {}, 0xffc86464, 1},
                {"srgb", QColorSpace::SRgb, 0xffc86464, 1},
                {"p3", QColorSpace::DisplayP3, 0xffd75d61, 3},
                {"adobe", QColorSpace::AdobeRgb, 0xffe36464, 3}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const std::uint32_t shown = shownColour(picture(row.name + ("." + ending), red, row.space));
        EXPECT_TRUE(test::isNear(shown, row.expected, row.tolerance)) << std::hex << shown;
    }
}

INSTANTIATE_TEST_SUITE_P(Plugins, ColourProfileOfFormat, testing::Values("png", "tiff", "webp"),
                         [](const auto& of) { return std::string(of.param); });
}  // namespace pinorama::tests
