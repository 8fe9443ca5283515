#include "previews/preview_plan.h"

#include "base/alloc.h"
#include "location/picture_source.h"
#include "reader/reader_protocol.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>

namespace pinorama {
namespace {
// A card is a white frame of this share of its size around the preview, with a fine edge.
constexpr qreal kCardFrame = 1.0 / 24;

int pixelsOf(qreal points, qreal ratio)
{
    return static_cast<int>(std::clamp<qreal>(std::round(points * ratio), 1, kMaxPreviewSide));
}

// The image on the memory of `pixels`, which has to outlive it.
QImage imageOn(const PixelImage& pixels)
{
    return QImage(reinterpret_cast<const uchar*>(pixels.pixels.data()), pixels.width, pixels.height,
                  QImage::Format_ARGB32_Premultiplied);
}

// An image on memory of its own; null when memory runs out.
QImage copyOf(const PixelImage& pixels)
{
    const QImage borrowed = imageOn(pixels);
    const auto size = static_cast<std::size_t>(borrowed.sizeInBytes());
    void* const block = baseAllocate(size);
    if (block == nullptr) return {};
    std::memcpy(block, borrowed.constBits(), size);
    return QImage(static_cast<uchar*>(block), borrowed.width(), borrowed.height(),
                  borrowed.bytesPerLine(), borrowed.format(), baseFree, block);
}
}  // namespace

PixelSize cuPixelsOfPoints(QSizeF size, qreal ratio)
{
    if (!(size.width() * ratio > 0) || !(size.height() * ratio > 0)) return {};
    return {pixelsOf(size.width(), ratio), pixelsOf(size.height(), ratio)};
}

PreviewPlan::PreviewPlan(std::string path, PictureFile picture, PixelSize box)
    : path_(std::move(path)),
      box_(box),
      picture_(std::make_unique<PictureFile>(std::move(picture))),
      attributes_(picture_->attributes())
{
    if (!picture_->isOpen()) {
        isFinished_ = true;
        return;
    }
    isInCache_ = cuIsInThumbnailCache(path_, picture_->realPath());
    if (isInCache_) return;
    for (ThumbnailPlace& place :
         cuThumbnailPlaces(path_, attributes_.modified, std::max(box.width, box.height))) {
        places_.push_back(std::move(place));
    }
}

bool PreviewPlan::next()
{
    while (!places_.empty()) {
        const ThumbnailPlace place = std::move(places_.front());
        places_.pop_front();
        thumbnail_ = std::make_unique<PictureFile>(place.path);
        if (!thumbnail_->isOpen()) continue;
        label_ = place.label;
        kind_ = PreviewKind::cachedThumbnail;
        file_ = thumbnail_.get();
        return true;
    }
    if (isFinished_) return false;
    isFinished_ = true;
    kind_ = readsMoreKinds() ? PreviewKind::morePicture : PreviewKind::picture;
    file_ = picture_.get();
    return true;
}

std::optional<QImage> PreviewPlan::imageOf(const PreviewReply& reply) const
{
    if (kind_ == PreviewKind::cachedThumbnail && !label_.matches(reply.uri, reply.mtime)) {
        return std::nullopt;
    }
    return copyOf(reply.image);
}

void PreviewPlan::store(const PreviewReply& reply) const
{
    const int side = box_.width;
    const bool fillsTheBox = reply.image.width == side || reply.image.height == side;
    if (isInCache_ || !reply.wasDecoded || box_.height != side || !fillsTheBox) return;
    cuStoreThumbnail(path_, attributes_.modified, attributes_.size, side, imageOn(reply.image));
}

QPixmap cuPictureOfPreview(const QImage& preview, QSizeF size, qreal ratio, std::uint8_t asIcon)
{
    if (preview.isNull()) return {};
    if (asIcon == 0) {
        QPixmap picture = QPixmap::fromImage(preview);
        picture.setDevicePixelRatio(ratio);
        return picture;
    }
    const PixelSize box = cuPixelsOfPoints(size, ratio);
    QPixmap card(box.width, box.height);
    card.fill(Qt::transparent);
    const QRectF whole(0, 0, box.width, box.height);
    const qreal frame = std::min(whole.width(), whole.height()) * kCardFrame;
    const QSizeF inside = whole.adjusted(frame, frame, -frame, -frame).size();
    QSizeF shown = preview.size();
    if (shown.width() > inside.width() || shown.height() > inside.height()) {
        shown.scale(inside, Qt::KeepAspectRatio);
    }
    QRectF place(QPointF(0, 0), shown);
    place.moveCenter(whole.center());

    QPainter painter(&card);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.setPen(QPen(QColor(0, 0, 0, 64), ratio));
    painter.setBrush(Qt::white);
    painter.drawRect(place.adjusted(-frame, -frame, frame, frame).adjusted(1, 1, -1, -1));
    painter.drawImage(place, preview);
    painter.end();
    card.setDevicePixelRatio(ratio);
    return card;
}

}  // namespace pinorama
