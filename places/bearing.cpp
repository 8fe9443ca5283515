#include "places/bearing.h"

#include <cmath>
#include <numbers>

namespace {
constexpr std::string_view kLetters[pinorama::kCompassPoints] = {
    "N", "NNE", "NE", "ENE", "E", "ESE", "SE", "SSE",
    "S", "SSW", "SW", "WSW", "W", "WNW", "NW", "NNW"};

// 0 to less than 360.
double withinOneTurn(double degrees)
{
    const double rest = std::fmod(degrees, 360.0);
    const double positive = rest < 0 ? rest + 360 : rest;
    return positive >= 360 ? 0 : positive;  // a tiny negative rest is rounded up to 360
}
}  // namespace

double pinorama::initialBearing(double fromLatitude, double fromLongitude, double toLatitude,
                                double toLongitude)
{
    constexpr double kRadian = std::numbers::pi / 180;
    const double from = fromLatitude * kRadian;
    const double to = toLatitude * kRadian;
    const double across = (toLongitude - fromLongitude) * kRadian;
    const double east = std::sin(across) * std::cos(to);
    const double north =
        std::cos(from) * std::sin(to) - std::sin(from) * std::cos(to) * std::cos(across);
    if (east == 0 && north == 0) return 0;
    return withinOneTurn(std::atan2(east, north) / kRadian);
}

int pinorama::compassPoint(double degrees)
{
    if (!std::isfinite(degrees)) return -1;
    constexpr double kStep = 360.0 / kCompassPoints;
    return static_cast<int>(withinOneTurn(degrees) / kStep + 0.5) % kCompassPoints;
}

std::string_view pinorama::compassLetters(int point)
{
    return point < 0 || point >= kCompassPoints ? std::string_view() : kLetters[point];
}
