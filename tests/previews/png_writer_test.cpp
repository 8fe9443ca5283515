#include "previews/png_writer.h"

#include <QImage>

#include <gtest/gtest.h>

using namespace pinorama;

namespace {
QImage picture(QImage::Format format, int width, int height)
{
    QImage image(width, height, format);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            image.setPixelColor(
                x, y, QColor((x * 37) % 256, (y * 91) % 256, (x * y) % 256, (x + y) % 256));
    }
    return image;
}
}  // namespace

TEST(cuMakePNG, isReadAsTheSamePixels)
{
    struct Row {
        const char* name;
        QImage image;
    };
    for (const Row& row : {Row{"without alpha", picture(QImage::Format_RGB32, 128, 85)},
                           Row{"with alpha", picture(QImage::Format_ARGB32, 85, 128)},
                           Row{"rows of an odd length", picture(QImage::Format_RGB888, 7, 3)},
                           Row{"one pixel", picture(QImage::Format_RGB32, 1, 1)},
                           Row{"wide", picture(QImage::Format_RGB32, 1024, 1)},
                           Row{"gray", picture(QImage::Format_Grayscale8, 16, 16)}}) {
        SCOPED_TRACE(row.name);
        QImage read;
        ASSERT_TRUE(read.loadFromData(cuMakePNG(row.image, {}), "PNG"));
        EXPECT_EQ(read.hasAlphaChannel(), row.image.hasAlphaChannel());
        EXPECT_EQ(read.convertToFormat(QImage::Format_ARGB32),
                  row.image.convertToFormat(QImage::Format_ARGB32));
    }
}

TEST(cuMakePNG, keepsTheTexts)
{
    const QByteArray file = cuMakePNG(
        picture(QImage::Format_RGB32, 4, 4),
        {{"Thumb::URI", "file:///one%20picture.jpg"}, {"Software", "caf\xE9"}, {"Empty", ""}});
    QImage read;
    ASSERT_TRUE(read.loadFromData(file, "PNG"));
    EXPECT_EQ(read.text(QStringLiteral("Thumb::URI")), QLatin1String("file:///one%20picture.jpg"));
    EXPECT_EQ(read.text(QStringLiteral("Software")), QLatin1String("caf\xE9"));
    EXPECT_TRUE(read.textKeys().contains(QLatin1String("Empty")));
}

TEST(cuMakePNG, isEmptyForANullImage)
{
    EXPECT_TRUE(cuMakePNG(QImage(), {{"Software", "Pinorama"}}).isEmpty());
}

TEST(cuMakePNG, isEmptyForAnImageThatTheLibraryRefusesAndPrintsNothing)
{
    testing::internal::CaptureStderr();
    EXPECT_TRUE(cuMakePNG(QImage(1'000'001, 1, QImage::Format_RGB888), {}).isEmpty());
    EXPECT_TRUE(cuMakePNG(QImage(1, 1'000'001, QImage::Format_RGB888), {}).isEmpty());
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(cuMakePNG, isAboutAsSmallAsTheToolkits)
{
    // A photograph is smooth; what the filter makes of it packs well.
    QImage image(128, 128, QImage::Format_RGB32);
    for (int y = 0; y < 128; ++y) {
        for (int x = 0; x < 128; ++x) image.setPixelColor(x, y, QColor(x + y, 2 * x, 255 - y));
    }
    EXPECT_LT(cuMakePNG(image, {}).size(), 128 * 128 * 3 / 10);
}
