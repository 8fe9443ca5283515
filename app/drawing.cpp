#include "app/drawing.h"

#include <QByteArrayList>
#include <QFile>
#include <QPixmap>

#include <cstring>

namespace pinorama {
namespace {
constexpr char kEndOfHeader[] = "\nENDHDR\n";
constexpr int kBytesOfPixel = 4;
constexpr int kMaxSide = 4096;  // pixels

// "WIDTH 32" -> 32; 0 when there is no such line.
int numberOf(const QByteArrayList& header, const QByteArray& key)
{
    for (const QByteArray& line : header) {
        if (line.startsWith(key + ' ')) return line.mid(key.size() + 1).toInt();
    }
    return 0;
}
}  // namespace

QImage readDrawing(const QString& file)
{
    QFile drawing(file);
    if (!drawing.open(QIODevice::ReadOnly)) return {};
    const QByteArray bytes = drawing.readAll();
    const qsizetype headerSize = bytes.indexOf(kEndOfHeader);
    if (!bytes.startsWith("P7\n") || headerSize < 0) return {};
    const QByteArrayList header = bytes.left(headerSize).split('\n');
    const int width = numberOf(header, "WIDTH");
    const int height = numberOf(header, "HEIGHT");
    const QByteArray pixels = bytes.mid(headerSize + qsizetype(sizeof kEndOfHeader) - 1);
    if (numberOf(header, "DEPTH") != kBytesOfPixel || numberOf(header, "MAXVAL") != 255 ||
        width <= 0 || width > kMaxSide || height <= 0 || height > kMaxSide ||
        pixels.size() != qsizetype(width) * height * kBytesOfPixel) {
        return {};
    }
    QImage image(width, height, QImage::Format_RGBA8888);
    for (int row = 0; row < height; ++row) {
        const qsizetype length = qsizetype(width) * kBytesOfPixel;
        std::memcpy(image.scanLine(row), pixels.constData() + row * length, std::size_t(length));
    }
    return image;
}

QIcon drawnIcon(const QString& name, std::initializer_list<int> sizes)
{
    QIcon icon;
    for (const int size : sizes) {
        const QString file = QStringLiteral(":/pinorama/%1-%2.pam").arg(name).arg(size);
        icon.addPixmap(QPixmap::fromImage(readDrawing(file)));
    }
    return icon;
}

}  // namespace pinorama
