#include "reader/other_pictures.h"

#include "reader/byte_device.h"
#include "reader/qt_pixels.h"

#include <QBuffer>
#include <QImage>
#include <QImageReader>

#include <algorithm>
#include <cstring>

namespace pinorama {
namespace {
constexpr int kMaxMegabytes = 256;
constexpr const char* kFormats[] = {"png", "gif", "bmp",  "ppm",  "pgm", "pbm",
                                    "xpm", "ico", "webp", "tiff", "tga", "icns"};

// The format that the first bytes show; empty if it is not one of those above.
QByteArray formatOf(QIODevice& device)
{
    const QByteArray format = QImageReader::imageFormat(&device);
    return std::find(std::begin(kFormats), std::end(kFormats), format) == std::end(kFormats)
               ? QByteArray()
               : format;
}

// The Exif orientation that stands for Qt's name of the same turn.
Orientation orientationOf(QImageIOHandler::Transformations transformation)
{
    switch (transformation) {
    case QImageIOHandler::TransformationMirror: return 2;
    case QImageIOHandler::TransformationRotate180: return 3;
    case QImageIOHandler::TransformationFlip: return 4;
    case QImageIOHandler::TransformationFlipAndRotate90: return 5;
    case QImageIOHandler::TransformationRotate90: return 6;
    case QImageIOHandler::TransformationMirrorAndRotate90: return 7;
    case QImageIOHandler::TransformationRotate270: return 8;
    default: return 1;
    }
}
}  // namespace

void loadPicturePlugins()
{
    for (const char* format : kFormats) {
        QBuffer empty;
        empty.open(QIODevice::ReadOnly);
        (void)QImageReader(&empty, format).canRead();  // the reply is no; asking loads the plug-in
    }
}

std::optional<PixelImage> decodeOtherPicture(ByteSource& source, PixelSize box)
{
    ByteDevice device(source);
    const QByteArray format = formatOf(device);
    if (format.isEmpty()) return std::nullopt;

    QImageReader::setAllocationLimit(kMaxMegabytes);
    QImageReader reader(&device, format);
    reader.setAutoTransform(false);
    const Orientation orientation = orientationOf(reader.transformation());
    if (isTransposed(orientation)) std::swap(box.width, box.height);

    // Asked for a smaller size Qt would scale with several threads, which the reader cannot start
    // any more; scaledPixels does without.
    const QImage image = reader.read();
    if (image.isNull()) return std::nullopt;
    return turnedUpright(scaledPixels(image, box), orientation);
}

}  // namespace pinorama
