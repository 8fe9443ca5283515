// A small map around a point: land, coasts and borders in the colours of the desktop.
//
// Angles are degrees, south and west negative; sizes are points of the screen. Degrees of latitude
// have the same length everywhere on a map, and degrees of longitude that which they have at the
// point.

#pragma once

#include "places/map_lines.h"

#include <QColor>
#include <QPointF>
#include <QSizeF>

class QPainter;
class QPalette;

namespace pinorama {

// Which part of the world a map shows, and where on it a point lies.
class MapFrame {
public:
    // A map with the point in its middle, or as near to it as the poles allow.
    //
    //   latitude   -90 to 90.
    //   longitude  -180 to 180.
    //   span       degrees of latitude along the shorter side; fewer are shown where the world has
    //              no more.
    //   size       neither side is 0.
    MapFrame(double latitude, double longitude, double span, QSizeF size);

    MapBox box() const;

    // Degrees of latitude in a point of the screen.
    double degreesPerPoint() const { return degreesPerPoint_; }

    // From the upper left corner. Longitudes may go on past 180, as those of a box do.
    QPointF at(double latitude, double longitude) const;

private:
    QSizeF size_;
    double middleLatitude_;
    double middleLongitude_;
    double degreesPerPoint_;
    double narrowing_;  // the length of a degree of longitude, in degrees of latitude
};

// The colours of a map, between those of the window and of its texts.
struct MapColours {
    QColor sea, land, coast, border;

    static MapColours of(const QPalette& palette);
};

// Fills the frame. `ratio` is the number of pixels in a point, by which the lines are chosen.
void drawMap(QPainter& painter, const PlaceData& data, const MapFrame& frame,
             const MapColours& colours, double ratio);

// Draws from a point what was in front of the camera, as far as one can know: a wedge as wide as an
// ordinary lens sees, which fades out. `direction` counts degrees clockwise from north.
void drawDirection(QPainter& painter, QPointF from, double direction, double length,
                   const QColor& colour);

}  // namespace pinorama
