// Reads positions in UTM and MGRS by GeographicLib.

#pragma once

#include "tests/places/sphere.h"

#include <GeographicLib/MGRS.hpp>
#include <GeographicLib/UTMUPS.hpp>

#include <algorithm>
#include <sstream>
#include <string>

inline Position readUtm(const std::string& text)
{
    int zone = 0;
    char band = 0;
    double easting = 0, northing = 0;
    std::istringstream(text) >> zone >> band >> easting >> northing;
    Position position{};
    GeographicLib::UTMUPS::Reverse(zone, band >= 'N', easting, northing, position.latitude,
                                   position.longitude);
    return position;
}

// The middle of the square that the text names.
inline Position readMgrs(std::string text)
{
    text.erase(std::remove(text.begin(), text.end(), ' '), text.end());
    int zone = 0, digits = 0;
    bool isNorth = false;
    double easting = 0, northing = 0;
    GeographicLib::MGRS::Reverse(text, zone, isNorth, easting, northing, digits);
    Position position{};
    GeographicLib::UTMUPS::Reverse(zone, isNorth, easting, northing, position.latitude,
                                   position.longitude);
    return position;
}
