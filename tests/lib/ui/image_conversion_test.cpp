#include "lib/ui/cocoa_utils.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPixmap>

#include <limits>

using namespace pinorama;

namespace {
QImage fourPixels()
{
    QImage image(2, 2, QImage::Format_ARGB32);
    image.setPixel(0, 0, 0xffff0000);
    image.setPixel(1, 0, 0xff00ff00);
    image.setPixel(0, 1, 0x800000ff);
    image.setPixel(1, 1, 0x00000000);
    return image;
}

void expectFourPixels(const QImage& converted)
{
    const QImage image = converted.convertToFormat(QImage::Format_ARGB32);
    ASSERT_EQ(image.size(), QSize(2, 2));
    EXPECT_EQ(image.pixel(0, 0), 0xffff0000);
    EXPECT_EQ(image.pixel(1, 0), 0xff00ff00);
    EXPECT_EQ(qAlpha(image.pixel(0, 1)), 0x80);
    EXPECT_EQ(qBlue(image.pixel(0, 1)), 0xff);
    EXPECT_EQ(qAlpha(image.pixel(1, 1)), 0);
}

TEST(convertCGImageRefToNSImage, drawsTheBitmapPixelByPixel)
{
    const QPixmap image = cocoaUtils::convertCGImageRefToNSImage(fourPixels());
    EXPECT_EQ(image.devicePixelRatio(), 1);
    expectFourPixels(image.toImage());
}

TEST(convertCGImageRefToNSImage, countsPixelsWhateverTheRatioOfTheBitmap)
{
    QImage dense = fourPixels();
    dense.setDevicePixelRatio(2);
    expectFourPixels(cocoaUtils::convertCGImageRefToNSImage(dense).toImage());
}

TEST(convertCGImageRefToNSImage, aNullBitmapGivesNull)
{
    EXPECT_TRUE(cocoaUtils::convertCGImageRefToNSImage(QImage()).isNull());
}

TEST(cuConvertNSImageToCGImageRef, givesThePixelsOfTheImage)
{
    QPixmap image = QPixmap::fromImage(fourPixels());
    image.setDevicePixelRatio(2);
    const QImage bitmap = cocoaUtils::cuConvertNSImageToCGImageRef(image);
    EXPECT_EQ(bitmap.devicePixelRatio(), 1);
    expectFourPixels(bitmap);
}

TEST(cuConvertNSImageToCGImageRef, aNullImageGivesNull)
{
    EXPECT_TRUE(cocoaUtils::cuConvertNSImageToCGImageRef(QPixmap()).isNull());
}

TEST(earthMapImage, isNullForEveryPlace)
{
    for (const double number : {0.0, 48.1, -180.0, std::numeric_limits<double>::quiet_NaN(),
                                std::numeric_limits<double>::infinity()}) {
        EXPECT_TRUE(cocoaUtils::earthMapImage(number, number).isNull());
    }
}
}  // namespace
