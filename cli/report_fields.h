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
#include <type_traits>

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

// Visits one value of the place; nothing if there is no place.
template <typename Fields, typename Value>
void visitOfPlace(const FileReport& report, Fields& fields, const char* key,
                  Value PlaceReport::*value)
{
    if (!report.place) {
        fields.addNothing(key);
    } else if constexpr (std::is_same_v<Value, double>) {
        fields.add(key, std::optional((*report.place).*value));
    } else if constexpr (std::is_same_v<Value, std::string>) {
        fields.add(key, std::string_view((*report.place).*value));
    } else {
        fields.add(key, (*report.place).*value);
    }
}

enum class WithAltitude { no, yes };

// Visits the numbers of the record. The table leaves out the altitude: it is a column already, but
// for the 0 of a picture without one.
template <typename Fields>
void visitRecord(const FileReport& report, Fields& fields, WithAltitude withAltitude)
{
    visitOfPlace(report, fields, "result", &PlaceReport::result);
    visitOfPlace(report, fields, "latti", &PlaceReport::latitude);
    visitOfPlace(report, fields, "longi", &PlaceReport::longitude);
    visitOfPlace(report, fields, "refLatti", &PlaceReport::latitudeLetter);
    visitOfPlace(report, fields, "refLongi", &PlaceReport::longitudeLetter);
    if (withAltitude == WithAltitude::yes) {
        visitOfPlace(report, fields, "altitude", &PlaceReport::altitude);
    }
    visitOfPlace(report, fields, "distance", &PlaceReport::distance);
    visitOfPlace(report, fields, "azimuth", &PlaceReport::azimuth);
    visitOfPlace(report, fields, "tilt", &PlaceReport::tilt);
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
    visitRecord(report, fields, WithAltitude::yes);
    visitOfPlace(report, fields, "city", &PlaceReport::city);
    visitOfPlace(report, fields, "state", &PlaceReport::state);
    visitOfPlace(report, fields, "country", &PlaceReport::country);
    visitOfPlace(report, fields, "description", &PlaceReport::description);
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
    visitRecord(report, fields, WithAltitude::no);
    fields.add("sizeText", std::string_view(report.sizeText));
    fields.add("modifiedText", std::string_view(report.modified));
    fields.add("createdText", std::string_view(report.created));
    fields.add("coordinate", std::string_view(report.coordinate));
    fields.add("altitudeText", std::string_view(report.altitudeText));
    fields.add("directionText", std::string_view(report.direction));
}

}  // namespace pinorama
