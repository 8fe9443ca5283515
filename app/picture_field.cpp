#include "app/picture_field.h"

#include <QPainter>

#include <algorithm>

void PictureField::paintEvent(QPaintEvent* event)
{
    if (!pixmap(Qt::ReturnByValue).isNull() || !text().isEmpty()) {
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
