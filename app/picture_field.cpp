#include "app/picture_field.h"

#include "base/file_uri.h"

#include <QApplication>
#include <QDrag>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>

#include <utility>

namespace pinorama {

PictureField::PictureField(QWidget* parent) : QLabel(parent)
{
    setWordWrap(true);
}

std::unique_ptr<QMimeData> PictureField::dragData() const
{
    if (!file_.starts_with('/')) return nullptr;
    auto carried = std::make_unique<QMimeData>();
    // The raw bytes of the path: a name may be no UTF-8.
    carried->setData(QStringLiteral("text/uri-list"),
                     QByteArray::fromStdString(fileURIOfPath(file_)) + "\r\n");
    return carried;
}

void PictureField::mousePressEvent(QMouseEvent* event)
{
    QLabel::mousePressEvent(event);
    if (event->button() != Qt::LeftButton) return;
    pressedAt_ = event->position().toPoint();
    event->accept();
}

void PictureField::mouseMoveEvent(QMouseEvent* event)
{
    QLabel::mouseMoveEvent(event);
    const QPoint way = event->position().toPoint() - pressedAt_;
    if ((event->buttons() & Qt::LeftButton) == 0 ||
        way.manhattanLength() < QApplication::startDragDistance()) {
        return;
    }
    std::unique_ptr<QMimeData> carried = dragData();
    if (!carried) return;
    auto* drag = new QDrag(this);  // deletes itself
    drag->setMimeData(carried.release());
    const QPixmap preview = pixmap();
    if (!preview.isNull()) {
        drag->setPixmap(preview);
        const QSize size = preview.deviceIndependentSize().toSize();
        drag->setHotSpot({size.width() / 2, size.height() / 2});
    }
    drag->exec(Qt::CopyAction);
}

QSize PictureField::sizeHint() const
{
    return text().isEmpty() ? hint_ : QLabel::sizeHint().expandedTo(hint_);
}

void PictureField::showNothing()
{
    file_.clear();
    larger_ = {};
    awaitsLarger_ = false;
    clear();
}

void PictureField::showPreview(const QPixmap& preview)
{
    larger_ = {};
    awaitsLarger_ = false;
    setPixmap(preview);
}

void PictureField::showLarger(const QPixmap& larger)
{
    larger_ = larger;
    update();
}

void PictureField::setAwaitsLarger(bool isAwaited)
{
    if (isAwaited == std::exchange(awaitsLarger_, isAwaited)) return;
    update();
}

void PictureField::setRoom(QSize room, QSize hint)
{
    if (hint != std::exchange(hint_, hint)) updateGeometry();
    if (room == std::exchange(room_, room)) return;
    update();
    Q_EMIT roomChanged();
}

QSize PictureField::shownSize() const
{
    const QPixmap small = pixmap();
    if (small.isNull()) return {0, 0};
    const QSize own = small.deviceIndependentSize().toSize();
    const QSize whole = larger_.isNull() ? own : larger_.deviceIndependentSize().toSize();
    const QSize fitted = whole.scaled(room(), Qt::KeepAspectRatio);
    const QSize shown = awaitsLarger_ ? fitted : fitted.boundedTo(whole);
    const bool isMore = shown.width() > own.width() || shown.height() > own.height();
    const bool hasRoom = room() != QSize(kSmallest, kSmallest);
    const bool mayBeMore = !larger_.isNull() || awaitsLarger_;
    return mayBeMore && isMore && hasRoom ? shown : own;
}

// The best preview that there is in that size.
const QPixmap& PictureField::scaledTo(QSize size)
{
    const QPixmap best = larger_.isNull() ? pixmap() : larger_;
    const QSize pixels = (QSizeF(size) * devicePixelRatioF()).toSize();
    if (best.cacheKey() != std::exchange(scaledKey_, best.cacheKey()) || scaled_.size() != pixels) {
        scaled_ = best.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        scaled_.setDevicePixelRatio(devicePixelRatioF());
    }
    return scaled_;
}

void PictureField::paintEvent(QPaintEvent* event)
{
    // The window may have come to another screen, or its screen has changed.
    if (devicePixelRatioF() != std::exchange(painted_, devicePixelRatioF()))
        QMetaObject::invokeMethod(this, &PictureField::roomChanged, Qt::QueuedConnection);
    const QPixmap small = pixmap();
    if (small.isNull() && text().isEmpty()) return paintOutline();
    const QSize shown = shownSize();
    const bool isOfThisScreen = small.devicePixelRatio() == devicePixelRatioF();
    if (small.isNull() || (isOfThisScreen && shown == small.deviceIndependentSize().toSize())) {
        scaled_ = {};
        scaledKey_ = 0;
        QLabel::paintEvent(event);
        return;
    }
    const QRect place = QStyle::alignedRect(layoutDirection(), alignment(), shown, contentsRect());
    QPainter(this).drawPixmap(place.topLeft(), scaledTo(shown));
}

void PictureField::paintOutline()
{
    // While one runs through pictures each of them is there in a moment.
    if (!file_.empty()) return;
    QRectF outline(QPointF(0, 0), room());
    outline.moveLeft((width() - outline.width()) / 2.0);

    QColor quiet = palette().color(foregroundRole());
    quiet.setAlphaF(0.35F);
    QPen pen(quiet, 1.5, Qt::CustomDashLine, Qt::RoundCap);
    pen.setDashPattern({4, 4});
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(pen);
    painter.drawRoundedRect(outline.adjusted(4, 4, -4, -4), 8, 8);
}

void PictureField::resizeEvent(QResizeEvent* event)
{
    QLabel::resizeEvent(event);
    Q_EMIT roomChanged();
}

void PictureField::showEvent(QShowEvent* event)
{
    QLabel::showEvent(event);
    Q_EMIT roomChanged();
}

}  // namespace pinorama
