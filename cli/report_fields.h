// The fields of a report as keys and values, always the same keys in the same order: those of the
// JSON objects, and the columns of the table. The fields of the record keep their names in both;
// where the table has a better value under the name of a text of the window, the text gets a name
// of its own.

#pragma once

#include "cli/csv_line.h"
#include "cli/file_report.h"

#include <optional>
#include <string>
#include <string_view>

namespace pinorama {

inline std::optional<double> latitudeOf(const FileReport& report)
{
    return report.position ? std::optional(report.position->latitude) : std::nullopt;
}

inline std::optional<double> longitudeOf(const FileReport& report)
{
    return report.position ? std::optional(report.position->longitude) : std::nullopt;
}

// A text that is nothing if it is empty.
inline std::optional<std::string> textOrNothing(const std::string& text)
{
    return text.empty() ? std::nullopt : std::optional(text);
}

// Visits how a picture lies from the place of a search. The record has its own distance.
template <typename Fields>
void visitNearness(const FileReport& report, Fields& fields)
{
    using Number = std::optional<double>;
    fields.add("metres", report.nearness ? Number(report.nearness->metres) : Number());
    fields.add("bearing", report.nearness ? Number(report.nearness->bearing) : Number());
}

// Visits the numbers of the record that have no other column in the table. Its altitude is left
// out: it is that column, but for the 0 of a picture without one.
template <typename Fields>
void visitRecord(const FileReport& report, Fields& fields)
{
    if (!report.place) {
        for (const char* key :
             {"result", "latti", "longi", "refLatti", "refLongi", "distance", "azimuth", "tilt"}) {
            fields.addNothing(key);
        }
        return;
    }
    const PlaceReport& place = *report.place;
    fields.add("result", place.result);
    fields.add("latti", std::optional(place.latitude));
    fields.add("longi", std::optional(place.longitude));
    fields.add("refLatti", std::string_view(place.latitudeLetter));
    fields.add("refLongi", std::string_view(place.longitudeLetter));
    fields.add("distance", std::optional(place.distance));
    fields.add("azimuth", std::optional(place.azimuth));
    fields.add("tilt", std::optional(place.tilt));
}

// Calls fields.add(key, value) for each field of an object, with a text, an optional text, a bool,
// an int32, an optional uint64 or an optional double, and fields.addNothing(key) for a field that
// files of this kind lack. The sources of values follow where more kinds of files are read.
template <typename Fields>
void visitFields(const FileReport& report, Fields& fields)
{
    fields.add("path", std::string_view(report.path));
    fields.add("name", std::string_view(report.name));
    fields.add("accepted", report.isAccepted);
    if (report.place) {
        const PlaceReport& place = *report.place;
        fields.add("result", place.result);
        fields.add("latti", std::optional(place.latitude));
        fields.add("longi", std::optional(place.longitude));
        fields.add("refLatti", std::string_view(place.latitudeLetter));
        fields.add("refLongi", std::string_view(place.longitudeLetter));
        fields.add("altitude", std::optional(place.altitude));
        fields.add("distance", std::optional(place.distance));
        fields.add("azimuth", std::optional(place.azimuth));
        fields.add("tilt", std::optional(place.tilt));
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
    fields.add("latitude", latitudeOf(report));
    fields.add("longitude", longitudeOf(report));
    fields.add("taken", textOrNothing(report.taken));
    fields.add("modifiedTime", textOrNothing(report.modifiedTime));
    fields.add("createdTime", textOrNothing(report.createdTime));
    if (report.nearness) visitNearness(report, fields);
    if (!report.source) return;
    fields.add("source", report.source->position);
    fields.add("altitudeSource", report.source->altitude);
    fields.add("directionSource", report.source->direction);
    fields.add("citySource", report.source->city);
    fields.add("stateSource", report.source->state);
    fields.add("countrySource", report.source->country);
    fields.add("descriptionSource", report.source->description);
}

// The same for the columns of the table.
//
template <typename Fields>
void visitColumns(const FileReport& report, CsvColumns columns, Fields& fields)
{
    fields.add("path", std::string_view(report.path));
    fields.add("latitude", latitudeOf(report));
    fields.add("longitude", longitudeOf(report));
    fields.add("altitude", report.altitude);
    fields.add("direction", report.heading);
    fields.add("taken", textOrNothing(report.taken));
    if (columns.hasNearness) visitNearness(report, fields);
    fields.add("name", std::string_view(report.name));
    const PlaceReport none{};
    const PlaceReport& place = report.place ? *report.place : none;
    fields.add("city", place.city);
    fields.add("state", place.state);
    fields.add("country", place.country);
    fields.add("description", place.description);
    fields.add("size", report.size);
    fields.add("modified", textOrNothing(report.modifiedTime));
    fields.add("created", textOrNothing(report.createdTime));
    if (!columns.isRaw) return;
    fields.add("accepted", report.isAccepted);
    visitRecord(report, fields);
    fields.add("sizeText", std::string_view(report.sizeText));
    fields.add("modifiedText", std::string_view(report.modified));
    fields.add("createdText", std::string_view(report.created));
    fields.add("coordinate", std::string_view(report.coordinate));
    fields.add("altitudeText", std::string_view(report.altitudeText));
    fields.add("directionText", std::string_view(report.direction));
}

}  // namespace pinorama
