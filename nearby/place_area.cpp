#include "nearby/place_area.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <utility>

namespace pinorama {
namespace {
using nlohmann::json;

constexpr int kMaxDepth = 32;                // collections inside collections
constexpr std::size_t kLeastRingLength = 4;  // a triangle, closed

// Whether a ray from the place to the east crosses the outline an odd number of times.
bool isInside(const std::vector<Position>& ring, Position place)
{
    bool isOdd = false;
    for (std::size_t i = 0, before = ring.size() - 1; i < ring.size(); before = i++) {
        const Position& a = ring[i];
        const Position& b = ring[before];
        if ((a.latitude > place.latitude) == (b.latitude > place.latitude)) continue;
        const double share = (place.latitude - a.latitude) / (b.latitude - a.latitude);
        if (place.longitude < a.longitude + share * (b.longitude - a.longitude)) isOdd = !isOdd;
    }
    return isOdd;
}

const json& memberOf(const json& object, const char* key)
{
    static const json nothing;
    if (!object.is_object()) return nothing;
    const auto found = object.find(key);
    return found == object.end() ? nothing : *found;
}
}  // namespace

// Collects the polygons of a document.
class AreaReader {
public:
    explicit AreaReader(PlaceArea* area) : area_(area) {}

    // False if something is malformed.
    bool read(const json& object, int depth)
    {
        if (depth > kMaxDepth) return false;
        const json& type = memberOf(object, "type");
        if (!type.is_string()) return false;
        if (type == "FeatureCollection") return readAll(memberOf(object, "features"), depth);
        if (type == "GeometryCollection") return readAll(memberOf(object, "geometries"), depth);
        const json& inner = type == "Feature" ? memberOf(object, "geometry") : json();
        if (type == "Feature") return inner.is_null() || read(inner, depth + 1);
        const json& coordinates = memberOf(object, "coordinates");
        if (type == "Polygon") return readPolygon(coordinates);
        if (type != "MultiPolygon") return true;
        return coordinates.is_array() &&
               std::all_of(coordinates.begin(), coordinates.end(),
                           [this](const json& polygon) { return readPolygon(polygon); });
    }

private:
    bool readAll(const json& objects, int depth)
    {
        return objects.is_array() &&
               std::all_of(objects.begin(), objects.end(),
                           [&](const json& object) { return read(object, depth + 1); });
    }

    bool readPolygon(const json& rings)
    {
        if (!rings.is_array() || rings.empty()) return false;
        PlaceArea::Polygon polygon{90.0, 180.0, -90.0, -180.0, {}};
        for (const json& ring : rings) {
            if (!readRing(ring, &polygon)) return false;
        }
        area_->polygons_.push_back(std::move(polygon));
        return true;
    }

    static bool readRing(const json& positions, PlaceArea::Polygon* polygon)
    {
        if (!positions.is_array() || positions.size() < kLeastRingLength) return false;
        PlaceArea::Ring& ring = polygon->rings.emplace_back();
        const bool isOutline = polygon->rings.size() == 1;
        for (const json& position : positions) {
            const bool isPair = position.is_array() && position.size() >= 2 &&
                                position[0].is_number() && position[1].is_number();
            if (!isPair) return false;
            const Position place{position[1].get<double>(), position[0].get<double>()};
            if (!std::isfinite(place.latitude) || !std::isfinite(place.longitude)) return false;
            ring.push_back(place);
            if (!isOutline) continue;
            polygon->south = std::min(polygon->south, place.latitude);
            polygon->north = std::max(polygon->north, place.latitude);
            polygon->west = std::min(polygon->west, place.longitude);
            polygon->east = std::max(polygon->east, place.longitude);
        }
        return true;
    }

    PlaceArea* area_;
};

std::optional<PlaceArea> PlaceArea::read(std::string_view text, std::string* outError)
{
    const json document = json::parse(text, nullptr, false);
    PlaceArea area;
    if (document.is_discarded()) {
        *outError = "is not JSON";
    } else if (!AreaReader(&area).read(document, 0)) {
        *outError = "is not well-formed GeoJSON";
    } else if (area.polygons_.empty()) {
        *outError = "contains no polygon";
    } else {
        return area;
    }
    return std::nullopt;
}

bool PlaceArea::contains(Position place) const
{
    return std::any_of(polygons_.begin(), polygons_.end(), [place](const Polygon& polygon) {
        const bool isInBox = place.latitude >= polygon.south && place.latitude <= polygon.north &&
                             place.longitude >= polygon.west && place.longitude <= polygon.east;
        if (!isInBox || !isInside(polygon.rings.front(), place)) return false;
        return std::none_of(polygon.rings.begin() + 1, polygon.rings.end(),
                            [place](const Ring& hole) { return isInside(hole, place); });
    });
}

}  // namespace pinorama
