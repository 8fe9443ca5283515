// A KML 2.2 document of many places, written piece by piece: a placemark for each, in one style,
// with its time and the view that the camera had. Texts are UTF-8. Standard: OGC 07-147r2.
//
//     std::string document;
//     appendKmlBeginning(&document);
//     for (const KmlPlace& place : places) appendKmlPlace(place, &document);
//     appendKmlEnd(&document);

#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace pinorama {

struct KmlPlace {
    std::string_view name{};
    std::string_view path{};
    std::string_view caption{};
    std::string_view taken{};      // ISO 8601, or empty
    std::string_view thumbnail{};  // the name of an image beside the document, or empty
    double latitude = 0.0;         // degrees, signed
    double longitude = 0.0;
    std::optional<double> altitude{};  // metres above the sea
    std::optional<double> heading{};   // degrees
    double distance = 0.0;             // metres from which the place is viewed without a heading
    double tilt = 0.0;                 // degrees of that view
};

// Appends the beginning of the document, with the style.
void appendKmlBeginning(std::string* out);

// Appends the placemark of one place. With a heading, its view is that of the camera: from the
// height of the eyes, in that direction. Else it is a view from above. The path and the heading
// also stand in its data, for programs that read tables out of KML.
void appendKmlPlace(const KmlPlace& place, std::string* out);

void appendKmlEnd(std::string* out);

}  // namespace pinorama
