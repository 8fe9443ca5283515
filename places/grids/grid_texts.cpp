#include "places/grids/grid_texts.h"

#include <GeographicLib/MGRS.hpp>
#include <GeographicLib/UTMUPS.hpp>

#include <cmath>
#include <exception>
#include <string_view>

using namespace pinorama;

namespace {
struct GridPosition {
    int zone = 0;  // 0 near the poles
    bool isNorth = false;
    double easting = 0, northing = 0;  // metres
};

GridPosition gridPosition(double latitude, double longitude)
{
    GridPosition position;
    GeographicLib::UTMUPS::Forward(latitude, longitude, position.zone, position.isNorth,
                                   position.easting, position.northing);
    return position;
}

bool isPosition(double latitude, double longitude)
{
    return std::abs(latitude) <= 90 && std::abs(longitude) <= 180;
}

// Eight degrees each from 80 degrees south on; the last one has twelve.
char bandLetter(double latitude)
{
    constexpr std::string_view kBands = "CDEFGHJKLMNPQRSTUVWXX";
    return kBands[static_cast<std::size_t>((latitude + 80) / 8)];
}
}  // namespace

std::string pinorama::utmText(double latitude, double longitude)
{
    if (!isPosition(latitude, longitude) || latitude < -80 || latitude >= 84) return {};
    try {
        const GridPosition position = gridPosition(latitude, longitude);
        if (position.zone == 0) return {};
        return std::to_string(position.zone) + bandLetter(latitude) + ' ' +
               std::to_string(std::llround(position.easting)) + ' ' +
               std::to_string(std::llround(position.northing));
    } catch (const std::exception&) {
        return {};
    }
}

std::string pinorama::mgrsText(double latitude, double longitude)
{
    constexpr int kDigits = 5;  // a metre
    if (!isPosition(latitude, longitude)) return {};
    try {
        const GridPosition position = gridPosition(latitude, longitude);
        std::string text;
        GeographicLib::MGRS::Forward(position.zone, position.isNorth, position.easting,
                                     position.northing, latitude, kDigits, text);
        if (text.size() < 2 * kDigits + 3) return {};
        text.insert(text.size() - kDigits, 1, ' ');
        text.insert(text.size() - 2 * kDigits - 1, 1, ' ');
        text.insert(text.size() - 2 * kDigits - 4, 1, ' ');
        return text;
    } catch (const std::exception&) {
        return {};
    }
}
