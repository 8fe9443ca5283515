#include "app/map_view.h"

#include "places/place_data.h"

#include <QEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QPainterPath>
#include <QStyleOptionFocusRect>

#include <algorithm>
#include <array>
#include <cmath>

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
        showAnew();
    });
    painted_.setSingleShot(true);
    connect(&painted_, &QTimer::timeout, this, &MapView::drawLater);
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
    painted_.stop();
    isOfBefore_ = mapped_ != region();
    setAccessibleName(words);
    setFocusPolicy(isDrawn() ? Qt::TabFocus : Qt::NoFocus);
    if (isDrawn()) {
        setCursor(Qt::PointingHandCursor);
    } else {
        unsetCursor();
    }
    showAnew();
    setVisible(true);
}

void MapView::showNothing()
{
    data_ = nullptr;
    painted_.stop();
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
    if (event->type() != QEvent::PaletteChange && event->type() != QEvent::StyleChange) return;
    map_ = {};
    update();
}

void MapView::resizeEvent(QResizeEvent* event)
{
    QAbstractButton::resizeEvent(event);
    showAnew();
}

void MapView::paintEvent(QPaintEvent* /*event*/)
{
    if (!isDrawn()) return;
    if (!isThere() && !isOfBefore_) draw();
    QPainter painter(this);
    if (isOfBefore_) {
        paintGround(painter);
        painted_.start(0);
    } else {
        painter.drawPixmap(0, 0, map_);
    }
    if (subject_.direction) {
        drawDirection(painter, region().frame().at(subject_.latitude, subject_.longitude),
                      *subject_.direction, kWedge, palette().color(QPalette::Highlight));
    }
    if (!hasFocus()) return;
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(palette().color(QPalette::WindowText));
    painter.setBrush(Qt::NoBrush);
    QStyleOptionFocusRect focus;
    focus.initFrom(this);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, this);
}

double MapView::span() const
{
    const auto at = static_cast<std::size_t>(scale_);
    return subject_.isAtSea ? kSpansAtSea[at] : kSpansOnLand[at];
}

// The middle of a map is a multiple of a quarter of a point, so that places of one walk have the
// same map.
MapView::Region MapView::region() const
{
    const double step = MapFrame(0, 0, span(), size()).degreesPerPoint() / 4;
    const auto rounded = [step](double degrees, double limit) {
        return std::clamp(std::round(degrees / step) * step, -limit, limit);
    };
    return {data_, rounded(subject_.latitude, 90), rounded(subject_.longitude, 180), span(),
            size()};
}

// The map is painted from the event loop: while pictures are walked through quickly only the last
// one is drawn.
void MapView::showAnew()
{
    placeMarker();
    update();
}

void MapView::placeMarker()
{
    if (marker_ == nullptr || size().isEmpty()) return;
    const QPointF place = isDrawn() ? region().frame().at(subject_.latitude, subject_.longitude)
                                    : QPointF(width() / 2.0, height() / 2.0);
    const QSize marker = marker_->minimumSize();
    marker_->setGeometry(
        QRect((place - QPointF(marker.width() / 2.0, marker.height() * kFootOfMarker)).toPoint(),
              marker));
}

// Another screen may have another density.
bool MapView::isThere() const
{
    return !map_.isNull() && map_.devicePixelRatio() == devicePixelRatioF() && mapped_ == region();
}

void MapView::draw()
{
    mapped_ = region();
    map_ = drawn(mapped_);
    ++drawings_;
}

void MapView::drawLater()
{
    draw();
    isOfBefore_ = false;
    update();
}

void MapView::paintGround(QPainter& painter) const
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(MapColours::of(palette()).land);
    painter.drawRoundedRect(rect(), kCorner, kCorner);
}

QPixmap MapView::drawn(const Region& region) const
{
    const qreal ratio = devicePixelRatioF();
    QPixmap map(size() * ratio);
    map.setDevicePixelRatio(ratio);
    map.fill(Qt::transparent);
    QPainter painter(&map);
    drawMap(painter, *region.data, region.frame(), MapColours::of(palette()), ratio);
    if (region.data->isDamaged()) {
        painter.end();
        map.fill(Qt::transparent);  // not a sea without land
        return map;
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
