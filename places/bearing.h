// Directions on the globe, and the points of the compass that people call them by. Degrees
// clockwise from north.

#pragma once

#include <string_view>

namespace pinorama {

// The direction in which the shortest way from one point to another begins: 0 to less than 360, and
// 0 for two equal points. Degrees of latitude and longitude.
double initialBearing(double fromLatitude, double fromLongitude, double toLatitude,
                      double toLongitude);

constexpr int kCompassPoints = 16;

// The nearest of the sixteen points, 0 for north, clockwise; a direction between two of them gives
// the later one. Any number of turns and any sign will do. -1 for infinity and what is no number.
int compassPoint(double degrees);

// The English letters of a point, "SSE"; empty if there is no such point.
std::string_view compassLetters(int point);

}  // namespace pinorama
