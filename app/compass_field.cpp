#include "app/compass_field.h"

#include "app/leading_edge.h"

#include <QEvent>
#include <QPainter>
#include <QPolygonF>

namespace pinorama {
namespace {
constexpr int kGap = 4;  // points between the arrow and the words
}

CompassField::CompassField(QWidget* parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setIndent(0);
    placeWords();
}

void CompassField::setDirection(double degrees, const QString& words)
{
    degrees_ = degrees;
    setText(words);
    update();  // the words of another direction may be the same
}

void CompassField::clearDirection()
{
    clear();
}

QSize CompassField::sizeHint() const
{
    // As high as the line beside it, also while it is empty.
    return {text().isEmpty() ? 0 : QLabel::sizeHint().width(), fontMetrics().lineSpacing() + 1};
}

QSize CompassField::minimumSizeHint() const
{
    return sizeHint();
}

void CompassField::changeEvent(QEvent* event)
{
    QLabel::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange ||
        event->type() == QEvent::LayoutDirectionChange)
        placeWords();
}

void CompassField::paintEvent(QPaintEvent* event)
{
    QLabel::paintEvent(event);
    if (text().isEmpty()) return;
    // Its tip reaches a circle as high as a capital letter, and a little more.
    const double radius = arrowSize() / 2.0;
    const QPolygonF arrow(
        {QPointF(0, -1), QPointF(0.66, 0.86), QPointF(0, 0.45), QPointF(-0.66, 0.86)});
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(isRightToLeft() ? width() - radius : radius,
                      fontMetrics().ascent() - fontMetrics().capHeight() / 2.0);
    painter.rotate(degrees_);
    painter.scale(radius, radius);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().color(foregroundRole()));
    painter.drawPolygon(arrow);
}

void CompassField::placeWords()
{
    const int room = arrowSize() + kGap;
    setAlignment(leadingEdge(*this) | Qt::AlignTop);
    setContentsMargins(isRightToLeft() ? 0 : room, 0, isRightToLeft() ? room : 0, 0);
}

int CompassField::arrowSize() const
{
    return fontMetrics().capHeight() + 4;
}

}  // namespace pinorama
