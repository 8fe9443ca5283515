#include "app/picture_field.h"

#include "base/file_uri.h"

#include <QApplication>
#include <QDrag>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>

namespace pinorama {

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

void PictureField::paintEvent(QPaintEvent* event)
{
    if (!pixmap().isNull() || !text().isEmpty()) {
        QLabel::paintEvent(event);
        return;
    }
    const QSize side = minimumSize();
    QRectF outline(0, 0, side.width(), side.height());
    outline.moveLeft((width() - side.width()) / 2.0);

    QColor quiet = palette().color(foregroundRole());
    quiet.setAlphaF(0.35F);
    QPen pen(quiet, 1.5, Qt::CustomDashLine, Qt::RoundCap);
    pen.setDashPattern({4, 4});
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(pen);
    painter.drawRoundedRect(outline.adjusted(4, 4, -4, -4), 8, 8);
}

}  // namespace pinorama
