// All places within some distance of one place. Distances are those of the shortest way on the
// ellipsoid of WGS 84, right to a millimetre at any distance, across the date line and the poles.
//
//     const PlaceCircle circle({48.8584, 2.2945}, 2000.0);
//     if (const auto nearness = circle.measure(position)) print(nearness->metres);

#pragma once

#include "nearby/position.h"

#include <optional>

namespace pinorama {

// How a place lies from another one.
struct Nearness {
    double metres;
    double bearing;  // degrees at the start of the way, 0 to 360, clockwise from north
};

constexpr double kDefaultRadius = 2000.0;    // metres
constexpr double kMaxRadius = 20'100'000.0;  // metres; no two places are farther apart

class PlaceCircle {
public:
    // `radius` in metres, 0 to kMaxRadius.
    PlaceCircle(Position centre, double radius);

    // False for most places outside; takes a few nanoseconds. True for all places inside.
    bool mayContain(Position position) const;

    // How a place inside lies from the centre; nothing for one outside. Computes the way only for
    // places that the circle may contain.
    std::optional<Nearness> measure(Position position) const;

    const Position& centre() const { return centre_; }
    double radius() const { return radius_; }

private:
    Position centre_;
    double radius_;
    // The box around the circle, in degrees from the centre; 360 for all longitudes.
    double latitudeReach_;
    double longitudeReach_;
};

}  // namespace pinorama
