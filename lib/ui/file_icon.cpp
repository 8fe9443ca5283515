#include "lib/ui/file_icon.h"

#include "lib/files/path_text.h"
#include "lib/objects/object_holder.h"
#include "lib/ui/qt_text.h"

#include <QIcon>
#include <QMimeDatabase>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

#include <sys/stat.h>

using namespace pinorama;

namespace {
constexpr int kMaxPixels = 4096;  // per side of an icon

QString nameOfSpecialType(std::uint32_t type)
{
    switch (type) {
    case S_IFDIR: return QStringLiteral("inode/directory");
    case S_IFCHR: return QStringLiteral("inode/chardevice");
    case S_IFBLK: return QStringLiteral("inode/blockdevice");
    case S_IFIFO: return QStringLiteral("inode/fifo");
    case S_IFSOCK: return QStringLiteral("inode/socket");
    default: return {};
    }
}

QMimeType typeOfItem(const std::string& path, std::uint32_t type)
{
    const QMimeDatabase types;
    const QString special = nameOfSpecialType(type);
    if (!special.isEmpty()) return types.mimeTypeForName(special);
    const ObjectHolder<TovStringRef> name(createPathText(path.substr(path.rfind('/') + 1)));
    const QList<QMimeType> found = types.mimeTypesForFileName(cuDisplayText(name.get()));
    return found.isEmpty() ? types.mimeTypeForName(QStringLiteral("application/octet-stream"))
                           : found.first();
}

QIcon themeIcon(const QMimeType& type)
{
    const QString general = type.name().startsWith(QStringLiteral("image/"))
                                ? QStringLiteral("image-x-generic")
                                : QStringLiteral("text-x-generic");
    for (const QString& name : {type.iconName(), type.genericIconName(), general}) {
        const QIcon icon = QIcon::fromTheme(name);
        if (!icon.isNull()) return icon;
    }
    return {};
}

// A sheet of paper with a folded corner, readable on light and dark windows.
void drawSheet(QPainter* painter, const QRectF& square)
{
    const qreal unit = square.width() / 16;
    const QRectF sheet = square.adjusted(3 * unit, unit, -3 * unit, -unit);
    const qreal fold = 3 * unit;
    const QPointF foldStart(sheet.right() - fold, sheet.top());
    const QPointF foldEnd(sheet.right(), sheet.top() + fold);

    QPainterPath outline(sheet.topLeft());
    outline.lineTo(foldStart);
    outline.lineTo(foldEnd);
    outline.lineTo(sheet.bottomRight());
    outline.lineTo(sheet.bottomLeft());
    outline.closeSubpath();
    painter->setPen(QPen(QColor(0x8a, 0x90, 0x98), std::max<qreal>(unit / 4, 1)));
    painter->setBrush(QColor(0xf6, 0xf7, 0xf8));
    painter->drawPath(outline);
    painter->setBrush(QColor(0xd5, 0xd9, 0xde));
    painter->drawPolygon(QPolygonF{foldStart, QPointF(foldStart.x(), foldEnd.y()), foldEnd});
}

void drawIcon(QPainter* painter, const QIcon& icon, const QRect& square)
{
    // A theme made of bitmaps may have nothing as large as this.
    const QPixmap pixmap = icon.pixmap(square.size(), 1.0);
    if (pixmap.isNull()) {
        drawSheet(painter, square);
        return;
    }
    QSize size = pixmap.size().scaled(square.size(), Qt::KeepAspectRatio);
    QRect place(QPoint(0, 0), size);
    place.moveCenter(square.center());
    painter->drawPixmap(place, pixmap);
}
}  // namespace

QPixmap cuIconOfItem(const std::string& path, QSizeF size, qreal ratio)
{
    struct stat status = {};
    const bool isThere = stat(path.c_str(), &status) == 0;
    return cuIconOfType(path, isThere ? status.st_mode & S_IFMT : 0, size, ratio);
}

QPixmap cuIconOfType(const std::string& path, std::uint32_t type, QSizeF size, qreal ratio)
{
    const QSizeF pixels = size * ratio;
    if (!(pixels.width() > 0 && pixels.height() > 0)) return {};
    const int width = std::clamp(
        static_cast<int>(std::lround(std::min<qreal>(pixels.width(), kMaxPixels))), 1, kMaxPixels);
    const int height = std::clamp(
        static_cast<int>(std::lround(std::min<qreal>(pixels.height(), kMaxPixels))), 1, kMaxPixels);
    const int side = std::min(width, height);

    QPixmap result(width, height);
    result.fill(Qt::transparent);
    QPainter painter(&result);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    drawIcon(&painter, themeIcon(typeOfItem(path, type)),
             QRect((width - side) / 2, (height - side) / 2, side, side));
    painter.end();
    result.setDevicePixelRatio(ratio);
    return result;
}
