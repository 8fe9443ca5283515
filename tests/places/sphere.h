// Distances between the positions that tests compare.

#pragma once

#include <cmath>
#include <numbers>

struct Position {
    double latitude, longitude;  // degrees
};

// Metres on a sphere, exact enough for neighbours.
inline double metres(const Position& a, const Position& b)
{
    constexpr double kRadian = std::numbers::pi / 180;
    const double dy = std::sin((b.latitude - a.latitude) * kRadian / 2);
    const double dx = std::sin((b.longitude - a.longitude) * kRadian / 2);
    const double h =
        dy * dy + std::cos(a.latitude * kRadian) * std::cos(b.latitude * kRadian) * dx * dx;
    return 2 * 6371008.8 * std::asin(std::sqrt(h));
}
