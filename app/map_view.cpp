#include "app/map_view.h"

#include "app/map_drawing.h"

#include <QEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QPainterPath>
#include <QStyleOptionFocusRect>

#include <array>

namespace pinorama {
namespace {
constexpr QSize kSmallest(128, 96);
constexpr QSize kUsual(176, 112);
constexpr double kCorner = 6;
constexpr double kWedge = 46;
constexpr double kFootOfMarker = 0.875;  // of its height

// Degrees of latitude along the shorter side, for each scale.
constexpr std::array<double, MapView::kScales> kSpansOnLand = {28, 6, 110};
constexpr std::array<double, MapView::kScales> kSpansAtSea = {64, 16, 130};
}  // namespace

MapView::MapView(QWidget* parent) : QAbstractButton(parent)
{
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    policy.setRetainSizeWhenHidden(true);  // nothing moves when it comes
    setSizePolicy(policy);
    setFocusPolicy(Qt::TabFocus);
    connect(this, &QAbstractButton::clicked, this, [this] {
        if (!isDrawn()) return;
        scale_ = (scale_ + 1) % kScales;
        drawAnew();
    });
    setVisible(false);
}

void MapView::setMarker(QWidget* marker)
{
    marker_ = marker;
    placeMarker();
}

void MapView::showPlace(const PlaceData* places, const Subject& subject, const QString& words)
{
    data_ = places;
    subject_ = subject;
    setAccessibleName(words);
    setFocusPolicy(isDrawn() ? Qt::TabFocus : Qt::NoFocus);
    if (isDrawn()) {
        setCursor(Qt::PointingHandCursor);
    } else {
        unsetCursor();
    }
    drawAnew();
    setVisible(true);
}

void MapView::showNothing()
{
    data_ = nullptr;
    map_ = {};
    setAccessibleName({});
    setVisible(false);
}

QSize MapView::sizeHint() const
{
    return kUsual;
}

QSize MapView::minimumSizeHint() const
{
    return kSmallest;
}

void MapView::changeEvent(QEvent* event)
{
    QAbstractButton::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange) drawAnew();
}

void MapView::resizeEvent(QResizeEvent* event)
{
    QAbstractButton::resizeEvent(event);
    drawAnew();
}

void MapView::paintEvent(QPaintEvent* /*event*/)
{
    if (!isDrawn()) return;
    // Another screen may have another density.
    if (map_.isNull() || map_.devicePixelRatio() != devicePixelRatioF()) map_ = drawn();
    QPainter painter(this);
    painter.drawPixmap(0, 0, map_);
    if (!hasFocus()) return;
    QStyleOptionFocusRect focus;
    focus.initFrom(this);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, this);
}

double MapView::span() const
{
    const auto at = static_cast<std::size_t>(scale_);
    return subject_.isAtSea ? kSpansAtSea[at] : kSpansOnLand[at];
}

// The map is painted from the event loop: while pictures are walked through quickly only the last
// one is drawn.
void MapView::drawAnew()
{
    map_ = {};
    placeMarker();
    update();
}

void MapView::placeMarker()
{
    if (marker_ == nullptr || size().isEmpty()) return;
    const MapFrame frame(subject_.latitude, subject_.longitude, span(), size());
    const QPointF place = isDrawn() ? frame.at(subject_.latitude, subject_.longitude)
                                    : QPointF(width() / 2.0, height() / 2.0);
    const QSize marker = marker_->minimumSize();
    marker_->setGeometry(
        QRect((place - QPointF(marker.width() / 2.0, marker.height() * kFootOfMarker)).toPoint(),
              marker));
}

QPixmap MapView::drawn() const
{
    const qreal ratio = devicePixelRatioF();
    QPixmap map(size() * ratio);
    map.setDevicePixelRatio(ratio);
    map.fill(Qt::transparent);
    QPainter painter(&map);
    const MapFrame frame(subject_.latitude, subject_.longitude, span(), size());
    drawMap(painter, *data_, frame, MapColours::of(palette()), ratio);
    if (subject_.direction) {
        drawDirection(painter, frame.at(subject_.latitude, subject_.longitude), *subject_.direction,
                      kWedge, palette().color(QPalette::Highlight));
    }
    // What lies outside of the rounded corners is taken away.
    QPainterPath outside;
    outside.addRect(rect());
    outside.addRoundedRect(rect(), kCorner, kCorner);
    painter.setCompositionMode(QPainter::CompositionMode_Clear);
    painter.fillPath(outside, Qt::black);
    return map;
}

}  // namespace pinorama
