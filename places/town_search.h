// The town by which people would describe a point.
//
// A town of many people extends further than a hamlet, so it is the town's edge that counts: of two
// towns the one whose edge is nearer, and among those that a point lies in, the one that it lies
// deeper in.

#pragma once

#include "places/place_data.h"
#include "places/place_finder.h"

#include <optional>
#include <string_view>

namespace pinorama {

// A town and what the file says of it.
struct FoundTown {
    NearTown town;
    double latitude;  // degrees
    double longitude;
    std::string zone;  // empty if it is not known
};

// Looks for a town.
//
//   country  the code of the country to look in; empty for any.
//   limit    kilometres, the greatest distance.
//
// Nothing if there is none within the limit.
std::optional<FoundTown> findTown(const PlaceData& data, double latitude, double longitude,
                                  std::string_view country, double limit);

// How far a town of `population` people extends, in kilometres: the radius of a circle in which
// they live at 4000 people to the square kilometre.
double townRadius(double population);

// How badly a town describes a point, from kilometres: less is better. Outside of the town it is
// the distance to its edge. Inside it is negative and grows with the depth, but less than that does
// in a large town, or no suburb would stand up to its city. Never less than `distance` - `radius`.
double townScore(double distance, double radius);

}  // namespace pinorama
