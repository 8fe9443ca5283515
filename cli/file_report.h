// Everything that pinorama-info tells about one file, as plain values that every form of output is
// written from. Texts are valid UTF-8: what a file name or a picture has that is none, shows as
// U+FFFD.

#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace pinorama {

// The place of a picture, as fileInfoRecord has it.
struct PlaceReport {
    std::int32_t result;  // 0 when a usable position was found, else the reader's status
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

struct FileReport {
    std::string path;
    std::string name;
    bool isAccepted;                    // a camera picture by its extension
    std::optional<PlaceReport> place;   // nothing when it is not accepted
    std::optional<std::uint64_t> size;  // bytes; nothing unless a regular file
    std::string sizeText;
    std::string modified;
    std::string created;
    // The texts of a usable position; empty otherwise, and where the window shows nothing either.
    std::string coordinate;
    std::string altitudeText;
    std::string direction;
    // What was wished for of a usable position.
    std::string address;    // of a web service or of the cataloguing program, or a globe's script
    std::string placemark;  // a piece of a KML document
    std::string error;      // why the file could not be read; empty when it could

    bool isLocated() const { return place && place->result == 0; }
};

}  // namespace pinorama
