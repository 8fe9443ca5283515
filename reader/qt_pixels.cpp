#include "reader/qt_pixels.h"

#include <QImage>

platform::PixelImage scaledPixels(const QImage& image, platform::PixelSize box)
{
    const QImage pixels = image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    const platform::PixelSize size = {pixels.width(), pixels.height()};
    platform::RowScaler scaler(size, platform::fitInto(size, box));
    for (int y = 0; y < pixels.height(); y++) {
        scaler.addRow(reinterpret_cast<const std::uint32_t*>(pixels.constScanLine(y)));
    }
    return scaler.take(0);
}
