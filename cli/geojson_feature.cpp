#include "cli/geojson_feature.h"

#include "base/number_text.h"
#include "cli/json_object.h"
#include "cli/report_fields.h"

namespace pinorama {
namespace {
std::string coordinatesOf(const FileReport& report)
{
    std::string numbers = "[";
    appendDecimal(report.position->longitude, &numbers);
    numbers += ',';
    appendDecimal(report.position->latitude, &numbers);
    if (report.altitude) {
        numbers += ',';
        appendDecimal(*report.altitude, &numbers);
    }
    return numbers + ']';
}
}  // namespace

void appendGeoJsonBeginning(std::string* out)
{
    *out += "{\"type\":\"FeatureCollection\",\"features\":[\n";
}

void appendGeoJsonFeature(const FileReport& report, std::string* out)
{
    if (!report.position) return;
    *out += kFeatureSeparator;
    JsonObject object(out);
    object.add("type", std::string_view("Feature"));
    object.open("geometry");
    object.add("type", std::string_view("Point"));
    object.addWritten("coordinates", coordinatesOf(report));
    object.close();
    object.open("properties");
    object.add("path", std::string_view(report.path));
    object.add("name", std::string_view(report.name));
    object.add("altitude", report.altitude);
    object.add("direction", report.heading);
    object.add("taken", textOrNothing(report.taken));
    if (report.nearness) visitNearness(report, object);
    const PlaceReport none{};
    const PlaceReport& place = report.place ? *report.place : none;
    object.add("city", place.city);
    object.add("state", place.state);
    object.add("country", place.country);
    object.add("description", place.description);
    object.close();
    object.close();
}

void appendGeoJsonEnd(std::string* out)
{
    *out += "\n]}\n";
}

}  // namespace pinorama
