// Which of many outlines a point lies in: the borders of countries, and the seas.

#pragma once

#include "places/place_data.h"

#include <cstdint>
#include <optional>

namespace pinorama {

// A point in stored units, hundred-thousandths of a degree.
struct StoredPoint {
    std::int32_t x;  // longitude
    std::int32_t y;  // latitude
};

StoredPoint storedPoint(double latitude, double longitude);

// The number of the area that the point lies in; of several the one whose outline has the smallest
// box. A ring within another ring of its area is a hole.
std::optional<std::uint16_t> areaAt(const PlaceData& data, StoredPoint point);

// The number of the first sea whose outline the point lies in. Outlines may extend past 180 degrees
// east.
std::optional<std::uint16_t> seaAt(const PlaceData& data, StoredPoint point);

}  // namespace pinorama
