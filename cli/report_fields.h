// The fields of a report as keys and values, always the same keys in the same order. JSON objects
// and CSV rows have the same fields.

#pragma once

#include "cli/file_report.h"

#include <string_view>

namespace pinorama {

// Calls fields.add(key, value) for each field, with a text, an optional text, a bool, an int32, an
// optional uint64 or a double, and fields.addNothing(key) for a field that files of this kind lack.
template <typename Fields>
void visitFields(const FileReport& report, Fields& fields)
{
    fields.add("path", std::string_view(report.path));
    fields.add("name", std::string_view(report.name));
    fields.add("accepted", report.isAccepted);
    if (report.place) {
        const PlaceReport& place = *report.place;
        fields.add("result", place.result);
        fields.add("latti", place.latitude);
        fields.add("longi", place.longitude);
        fields.add("refLatti", std::string_view(place.latitudeLetter));
        fields.add("refLongi", std::string_view(place.longitudeLetter));
        fields.add("altitude", place.altitude);
        fields.add("distance", place.distance);
        fields.add("azimuth", place.azimuth);
        fields.add("tilt", place.tilt);
        fields.add("city", place.city);
        fields.add("state", place.state);
        fields.add("country", place.country);
        fields.add("description", place.description);
    } else {
        for (const char* key :
             {"result", "latti", "longi", "refLatti", "refLongi", "altitude", "distance", "azimuth",
              "tilt", "city", "state", "country", "description"}) {
            fields.addNothing(key);
        }
    }
    fields.add("size", report.size);
    fields.add("sizeText", std::string_view(report.sizeText));
    fields.add("modified", std::string_view(report.modified));
    fields.add("created", std::string_view(report.created));
    fields.add("coordinate", std::string_view(report.coordinate));
    fields.add("altitudeText", std::string_view(report.altitudeText));
    fields.add("direction", std::string_view(report.direction));
}

}  // namespace pinorama
