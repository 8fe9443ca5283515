// The place of a picture as people call it, as plain values.

#pragma once

#include <optional>
#include <string>

namespace pinorama {

class PlaceFinder;

// Texts are UTF-8, and empty for what the place does not have.
struct NamedPlace {
    std::string words;               // a line in the user's language: "Near Ushuaia, Argentina"
    std::string country;             // ISO 3166-1 code of two letters; empty at sea
    std::string countryName;         // in the user's language
    std::string sea;                 // in English; empty on land
    std::string zone;                // the time zone by its name in the tz database
    std::string town;                // the town that the words name
    std::optional<double> distance;  // metres from the town's centre to the place
    std::optional<double> bearing;   // degrees, the direction from the town to the place
};

// The place at a point, degrees with signs. Nothing without a usable places file, and where there
// is neither country nor sea.
std::optional<NamedPlace> namePlace(PlaceFinder& places, double latitude, double longitude);

}  // namespace pinorama
