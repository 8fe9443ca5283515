// The land and the borders of the world as lines to draw, in the scale that a small map needs.
// Coordinates are degrees of longitude and latitude, as they are on a map whose axes are those.

#pragma once

#include "places/place_data.h"

#include <cstdint>
#include <vector>

namespace pinorama {

struct MapPoint {
    double x;  // degrees of longitude, which go on past 180 as the box does
    double y;  // degrees of latitude
};

struct MapBox {
    double west, south, east, north;  // degrees; west < east, at most 360 apart, -360 to 360
};

enum class MapLineKind : std::uint8_t {
    land,    // a closed outline to be filled, not drawn: it runs along the sides of the box, too
    coast,   // to be drawn
    border,  // between countries, to be drawn
};

struct MapLine {
    MapLineKind kind;
    std::vector<MapPoint> points;
};

// The lines in a box.
//
//   box              what is shown. Lines may extend past its sides, by about two units of `scale`
//                    and by one side of a coast.
//   degreesPerPixel  the scale: the coarsest of the stored maps whose lines still look round is
//                    taken, and what is smaller than half a pixel is left out.
//
// Land within land is a lake or a hole: fill by the even-odd rule. Empty for a box or a scale that
// is no such, and for a file without a map. Throws nothing but std::bad_alloc.
std::vector<MapLine> mapLines(const PlaceData& data, const MapBox& box, double degreesPerPixel);

}  // namespace pinorama
