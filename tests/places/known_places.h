// The tables that the look-up of places is measured with: places that people know, and points near
// borders.

#pragma once

#include "places/place_finder.h"

#include <string>
#include <vector>

// A row of known_places.txt. Where several answers would do, all of them are listed.
struct KnownPlace {
    double latitude, longitude;  // degrees
    std::vector<std::string> countries, zones, towns;
    std::string title;
};

// A row of border_points.txt.
struct BorderPoint {
    double latitude, longitude;
    std::string country;
    std::string kind;  // "near" or "apart"
};

// True for the point where the two sources of borders disagree by some kilometres, in northern
// Bolivia: the look-up has country-coder's, and the table says what Natural Earth has.
bool isDisputedBySources(const BorderPoint& point);

std::vector<KnownPlace> readKnownPlaces(const std::string& path);
std::vector<BorderPoint> readBorderPoints(const std::string& path);

bool isOneOf(const std::string& text, const std::vector<std::string>& answers);
