// The places inside the polygons of a GeoJSON document (RFC 7946): a Polygon, a MultiPolygon, a
// Feature or a collection of those. Other geometries in a collection count for nothing.
//
// An edge is straight in longitude and latitude, as the standard has it; an area across the date
// line consists of two polygons there.

#pragma once

#include "nearby/position.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pinorama {

constexpr std::size_t kMaxAreaBytes = 64u << 20;  // of a document

class PlaceArea {
public:
    // Reads the text of a document. Nothing if it is none or has no polygon; `outError` then
    // receives the reason.
    static std::optional<PlaceArea> read(std::string_view text, std::string* outError);

    // Whether a place is inside a polygon and in none of its holes. On an edge either may be true.
    bool contains(Position position) const;

private:
    using Ring = std::vector<Position>;
    struct Polygon {
        double south, west, north, east;  // the box around it, in degrees
        std::vector<Ring> rings;          // the outline, then the holes
    };
    friend class AreaReader;

    std::vector<Polygon> polygons_;
};

}  // namespace pinorama
