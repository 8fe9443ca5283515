#include "reader/cached_thumbnail.h"

#include "reader/byte_device.h"
#include "reader/qt_pixels.h"

#include <QImage>
#include <QImageReader>

namespace pinorama {
namespace {
constexpr int kMaxSide = 1024;  // pixels, of the size named xx-large

}  // namespace

std::optional<CachedThumbnail> readCachedThumbnail(ByteSource& source, PixelSize box)
{
    if (box.width <= 0 || box.height <= 0) return std::nullopt;
    ByteDevice device(source);
    QImageReader reader(&device, "png");
    const QSize size = reader.size();
    if (size.isEmpty() || size.width() > kMaxSide || size.height() > kMaxSide) {
        return std::nullopt;
    }
    const QImage image = reader.read();
    if (image.isNull()) return std::nullopt;
    return CachedThumbnail{scaledPixels(image, box),
                           image.text(QStringLiteral("Thumb::URI")).toStdString(),
                           image.text(QStringLiteral("Thumb::MTime")).toStdString()};
}

}  // namespace pinorama
