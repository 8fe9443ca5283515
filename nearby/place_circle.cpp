#include "nearby/place_circle.h"

#include <GeographicLib/Geodesic.hpp>

#include <algorithm>
#include <cmath>

namespace pinorama {
namespace {
constexpr double kRadiansPerDegree = 0.017453292519943295;
// A degree of latitude is shortest at the equator, with 110,574 metres. On the sphere of this
// radius everything is a little closer together than on the ellipsoid, so that a box that is
// computed on it contains the circle.
constexpr double kLeastRadius = 6'335'000.0;  // metres
constexpr double kWholeTurn = 360.0;

double longitudeReachOf(double latitude, double angle)
{
    const double nearestToPole = std::abs(latitude) * kRadiansPerDegree + angle;
    if (nearestToPole >= 90.0 * kRadiansPerDegree) return kWholeTurn;  // a pole is inside
    const double sine = std::sin(angle) / std::cos(latitude * kRadiansPerDegree);
    return sine >= 1.0 ? kWholeTurn : std::asin(sine) / kRadiansPerDegree;
}
}  // namespace

PlaceCircle::PlaceCircle(Position centre, double radius) : centre_(centre), radius_(radius)
{
    const double angle = radius / kLeastRadius * 1.001;  // for the rounding of the arithmetic
    latitudeReach_ = angle / kRadiansPerDegree + 1e-9;
    longitudeReach_ = longitudeReachOf(centre.latitude, angle) + 1e-9;
}

bool PlaceCircle::mayContain(Position position) const
{
    if (!(std::abs(position.latitude - centre_.latitude) <= latitudeReach_)) return false;
    const double apart = std::abs(position.longitude - centre_.longitude);
    return std::min(apart, kWholeTurn - apart) <= longitudeReach_;
}

std::optional<Nearness> PlaceCircle::measure(Position position) const
{
    if (!mayContain(position)) return std::nullopt;
    double metres = 0.0;
    double bearing = 0.0;
    double bearingAtEnd = 0.0;
    GeographicLib::Geodesic::WGS84().Inverse(centre_.latitude, centre_.longitude, position.latitude,
                                             position.longitude, metres, bearing, bearingAtEnd);
    if (!(metres <= radius_)) return std::nullopt;
    return Nearness{metres, bearing < 0.0 ? bearing + kWholeTurn : bearing};
}

}  // namespace pinorama
