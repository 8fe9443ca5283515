#include "lib/ui/cocoa_utils.h"

#include <QImage>
#include <QPainter>
#include <QPixmap>

#include <exception>

QPixmap cocoaUtils::convertCGImageRefToNSImage(const QImage& bitmap)
{
    QPixmap image;
    try {
        if (bitmap.isNull()) return image;
        image = QPixmap(bitmap.width(), bitmap.height());
        image.fill(Qt::transparent);
        QPainter painter(&image);
        painter.drawImage(QRect(0, 0, bitmap.width(), bitmap.height()), bitmap);
    } catch (const std::exception&) {
        // What has been drawn so far is the result.
    }
    return image;
}

QImage cocoaUtils::cuConvertNSImageToCGImageRef(const QPixmap& image)
{
    QImage bitmap = image.toImage();
    bitmap.setDevicePixelRatio(1);  // a bitmap counts pixels
    return bitmap;
}

QPixmap cocoaUtils::earthMapImage(double /*latitude*/, double /*longi*/)
{
    return {};
}
