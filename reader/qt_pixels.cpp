#include "reader/qt_pixels.h"

#include <QImage>

namespace pinorama {

PixelImage scaledPixels(const QImage& image, PixelSize box)
{
    const PixelSize size = {image.width(), image.height()};
    RowScaler scaler(size, fitInto(size, box));
    for (int y = 0; y < image.height(); y++) {
        // Row by row, because a large image as a whole would be converted by several threads, which
        // this process cannot start any more.
        const QImage row =
            image.copy(0, y, image.width(), 1).convertToFormat(QImage::Format_ARGB32_Premultiplied);
        scaler.addRow(reinterpret_cast<const std::uint32_t*>(row.constScanLine(0)));
    }
    return scaler.take(0);
}

}  // namespace pinorama
