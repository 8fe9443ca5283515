// Everything that pinorama-info reports about one file, as plain values for all forms of output.
// Texts are valid UTF-8; malformed parts of a file name or of a picture's texts become U+FFFD.

#pragma once

#include "cli/place_report.h"
#include "nearby/place_circle.h"
#include "nearby/position.h"

#include <cstdint>
#include <optional>
#include <string>

namespace pinorama {

// The place of a picture, as in fileInfoRecord.
struct PlaceReport {
    std::int32_t result;  // 0 if a usable position was found, else the reader's status
    double latitude;      // degrees, a magnitude
    double longitude;
    std::string latitudeLetter;  // one character, empty for unknown
    std::string longitudeLetter;
    double altitude;  // metres
    double distance;  // metres
    double azimuth;   // degrees
    double tilt;      // degrees
    std::optional<std::string> city;
    std::optional<std::string> state;
    std::optional<std::string> country;
    std::optional<std::string> description;
};

// Where the values of a picture come from: "exif", "iptc", "xmp", "quicktime" or "sidecar". Nothing
// for a value that it does not have.
struct SourceReport {
    std::optional<std::string> position{};
    std::optional<std::string> altitude{};
    std::optional<std::string> direction{};
    std::optional<std::string> city{};
    std::optional<std::string> state{};
    std::optional<std::string> country{};
    std::optional<std::string> description{};
};

struct FileReport {
    std::string path;
    std::string name;
    bool isAccepted;                       // a camera picture by its extension
    std::optional<PlaceReport> place;      // nothing if it is not accepted
    std::optional<SourceReport> source{};  // nothing unless more is read
    std::optional<std::uint64_t> size;     // bytes; nothing unless a regular file
    std::string sizeText;
    std::string modified;
    std::string created;
    // What tables and documents get: numbers only where the picture has them, times in ISO 8601.
    std::optional<Position> position;          // a usable position that is on the Earth
    std::optional<double> altitude;            // metres, negative below sea level
    std::optional<double> heading;             // degrees, the direction of view
    std::optional<std::int64_t> takenInstant;  // seconds since 1970; without an offset as if in UTC
    std::string taken;         // empty if the picture does not say; so are the two below
    std::string modifiedTime;  // of the file
    std::string createdTime;
    std::optional<Nearness> nearness;      // to the place of a search
    std::optional<NamedPlace> namedPlace;  // for the outputs that name places
    // The texts of a usable position. Empty without one, and where the window shows nothing either.
    std::string coordinate;
    std::string altitudeText;
    std::string direction;
    // What the options request for a usable position.
    std::string address;    // of a web service or of the cataloguing program, or a globe's script
    std::string placemark;  // a piece of a KML document
    std::string error;      // why the file could not be read; empty if it could

    bool isLocated() const { return place && place->result == 0; }
};

}  // namespace pinorama
