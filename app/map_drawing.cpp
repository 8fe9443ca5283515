#include "app/map_drawing.h"

#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <QPolygonF>
#include <QRadialGradient>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <tuple>

namespace pinorama {
namespace {
// Near the poles degrees of longitude have hardly any length; a map of such would be all lines.
constexpr double kLeastNarrowing = 0.2;

constexpr double kAngleOfView = 54;  // degrees: 35 mm on a full frame, as most telephones have

QColor between(const QColor& one, const QColor& other, float share)
{
    const auto mixed = [share](float a, float b) { return a + (b - a) * share; };
    return QColor::fromRgbF(mixed(one.redF(), other.redF()), mixed(one.greenF(), other.greenF()),
                            mixed(one.blueF(), other.blueF()));
}

QPolygonF polygonOf(const MapLine& line, const MapFrame& frame)
{
    QPolygonF polygon;
    polygon.reserve(static_cast<qsizetype>(line.points.size()));
    for (const MapPoint& point : line.points) polygon.append(frame.at(point.y, point.x));
    return polygon;
}
}  // namespace

MapFrame::MapFrame(double latitude, double longitude, double span, QSizeF size)
    : size_(size),
      middleLongitude_(longitude),
      narrowing_(std::max(std::cos(latitude * std::numbers::pi / 180), kLeastNarrowing))
{
    const double whole = std::min(360 * narrowing_ / size.width(), 180 / size.height());
    degreesPerPoint_ = std::min(span / std::min(size.width(), size.height()), whole);
    const double farthest = std::max(90 - degreesPerPoint_ * size.height() / 2, 0.0);
    middleLatitude_ = std::clamp(latitude, -farthest, farthest);
}

MapBox MapFrame::box() const
{
    const double width = std::min(size_.width() * degreesPerPoint_ / narrowing_, 360.0);
    const double height = size_.height() * degreesPerPoint_;
    return {middleLongitude_ - width / 2, middleLatitude_ - height / 2,
            middleLongitude_ + width / 2, middleLatitude_ + height / 2};
}

QPointF MapFrame::at(double latitude, double longitude) const
{
    return {size_.width() / 2 + (longitude - middleLongitude_) * narrowing_ / degreesPerPoint_,
            size_.height() / 2 - (latitude - middleLatitude_) / degreesPerPoint_};
}

MapColours MapColours::of(const QPalette& palette)
{
    const QColor window = palette.color(QPalette::Window);
    const QColor text = palette.color(QPalette::WindowText);
    const bool isDark = window.lightnessF() < text.lightnessF();
    const QColor water = isDark ? QColor(38, 86, 124) : QColor(118, 170, 212);
    const QColor ground = isDark ? QColor(150, 148, 138) : QColor(255, 253, 246);
    return {.sea = between(window, water, isDark ? 0.55F : 0.45F),
            .land = between(window, ground, isDark ? 0.42F : 0.85F),
            .coast = between(window, text, 0.62F),
            .border = between(window, text, 0.42F)};
}

void drawMap(QPainter& painter, const PlaceData& data, const MapFrame& frame,
             const MapColours& colours, double ratio)
{
    const MapBox box = frame.box();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(
        QRectF(frame.at(box.north, box.west), frame.at(box.south, box.east)).toAlignedRect(),
        colours.sea);

    const auto lines = mapLines(data, box, frame.degreesPerPoint() / ratio);
    QPainterPath land;  // fills by the even-odd rule
    for (const MapLine& line : lines) {
        if (line.kind == MapLineKind::land) land.addPolygon(polygonOf(line, frame));
    }
    // The coast is drawn over its edge.
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.fillPath(land, colours.land);
    painter.setRenderHint(QPainter::Antialiasing);
    for (const auto& [kind, colour, width] : {std::tuple(MapLineKind::border, colours.border, 1.0),
                                              std::tuple(MapLineKind::coast, colours.coast, 1.0)}) {
        painter.setPen(QPen(colour, width, Qt::SolidLine, Qt::FlatCap, Qt::BevelJoin));
        for (const MapLine& line : lines) {
            if (line.kind == kind) painter.drawPolyline(polygonOf(line, frame));
        }
    }
}

void drawDirection(QPainter& painter, QPointF from, double direction, double length,
                   const QColor& colour)
{
    QRadialGradient fading(from, length);
    QColor strong = colour;
    strong.setAlphaF(0.85F);
    QColor nothing = colour;
    nothing.setAlphaF(0.0F);
    fading.setColorAt(0.0, strong);
    fading.setColorAt(0.6, strong);
    fading.setColorAt(1.0, nothing);

    // The toolkit counts sixteenths of a degree, anticlockwise from the east.
    const double middle = 90 - std::fmod(direction, 360.0);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(fading);
    painter.drawPie(QRectF(from - QPointF(length, length), QSizeF(2 * length, 2 * length)),
                    static_cast<int>(std::lround((middle - kAngleOfView / 2) * 16)),
                    static_cast<int>(std::lround(kAngleOfView * 16)));
}

}  // namespace pinorama
