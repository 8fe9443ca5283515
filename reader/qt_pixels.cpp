#include "reader/qt_pixels.h"

#include "pictures/pixels/colour_profile.h"

#include <QColorSpace>
#include <QImage>

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace pinorama {
namespace {
constexpr int kBandPixels = 16 * 1024;  // from 64 k on Qt takes several threads

// Qt itself would convert a large image with several threads.
void convertColours(const QColorSpace& space, PixelImage& image)
{
    if (!space.isValid() || space == QColorSpace(QColorSpace::SRgb)) return;
    const QByteArray icc = space.iccProfile();
    const ByteView bytes(reinterpret_cast<const std::uint8_t*>(icc.constData()),
                         static_cast<std::size_t>(icc.size()));
    if (const auto profile = ColourProfile::fromIcc(bytes)) profile->convertToSrgb(image);
}
}  // namespace

PixelImage scaledPixels(const QImage& image, PixelSize box)
{
    const PixelSize size = {image.width(), image.height()};
    RowScaler scaler(size, fitInto(size, box));
    // In bands, because a large image as a whole would be converted by several threads, which this
    // process cannot start any more. A band is not a single row: one that is narrow and tall has
    // millions of them.
    const int rows = std::max(kBandPixels / std::max(image.width(), 1), 1);
    for (int top = 0; top < image.height(); top += rows) {
        const QImage band = image.copy(0, top, image.width(), std::min(rows, image.height() - top))
                                .convertToFormat(QImage::Format_ARGB32_Premultiplied);
        for (int y = 0; y < band.height(); y++) {
            scaler.addRow(reinterpret_cast<const std::uint32_t*>(band.constScanLine(y)));
        }
    }
    PixelImage scaled = scaler.take(0);
    convertColours(image.colorSpace(), scaled);
    return scaled;
}

}  // namespace pinorama
