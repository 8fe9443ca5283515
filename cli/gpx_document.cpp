#include "cli/gpx_document.h"

#include "base/number_text.h"
#include "cli/iso_time.h"
#include "globe/xml_escape.h"

#include <algorithm>
#include <utility>

namespace pinorama {
namespace {
void appendText(std::string_view tag, std::string_view text, std::string* out)
{
    out->append("<").append(tag).append(">");
    appendXmlText(text, out);
    out->append("</").append(tag).append(">");
}

// The beginning of a point, up to and including its time: that is the order of the schema.
void appendPoint(std::string_view tag, const Position& position, std::optional<double> altitude,
                 std::optional<std::int64_t> instant, std::string* out)
{
    out->append("<").append(tag).append(" lat=\"");
    appendDecimal(position.latitude, out);
    *out += "\" lon=\"";
    appendDecimal(position.longitude, out);
    *out += "\">";
    if (altitude) {
        *out += "<ele>";
        appendDecimal(*altitude, out);
        *out += "</ele>";
    }
    if (instant) appendText("time", isoTime(*instant, 0), out);
}

// Whether the text of a time ends with an offset.
bool isInUTC(const std::string& isoText)
{
    constexpr std::size_t kWithoutOffset = 19;  // "2026-05-03T14:03:22"
    return isoText.size() > kWithoutOffset;
}
}  // namespace

std::optional<TrackPoint> trackPointOf(const FileReport& report)
{
    if (!report.position || !report.takenInstant) return std::nullopt;
    return TrackPoint{*report.takenInstant, isInUTC(report.taken), *report.position,
                      report.altitude};
}

void appendGpxBeginning(std::string* out)
{
    *out +=
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<gpx version=\"1.1\" creator=\"pinorama-info\""
        " xmlns=\"http://www.topografix.com/GPX/1/1\">\n";
}

void appendGpxWaypoint(const FileReport& report, std::string* out)
{
    if (!report.position) return;
    const bool hasInstant = report.takenInstant && isInUTC(report.taken);
    appendPoint("wpt", *report.position, report.altitude,
                hasInstant ? report.takenInstant : std::nullopt, out);
    appendText("name", report.name, out);
    if (!report.taken.empty() && !hasInstant) appendText("cmt", "taken " + report.taken, out);
    if (report.place && report.place->description) {
        appendText("desc", *report.place->description, out);
    }
    appendText("src", report.path, out);
    *out += "<sym>Scenic Area</sym><type>picture</type></wpt>\n";
}

void appendGpxTrack(std::vector<TrackPoint> points, std::string* out)
{
    if (points.empty()) return;
    std::stable_sort(points.begin(), points.end(), [](const TrackPoint& a, const TrackPoint& b) {
        return a.instant < b.instant;
    });
    *out += "<trk><name>Pictures</name><trkseg>\n";
    for (const TrackPoint& point : points) {
        appendPoint("trkpt", point.position, point.altitude,
                    point.isInUTC ? std::optional(point.instant) : std::nullopt, out);
        *out += "</trkpt>\n";
    }
    *out += "</trkseg></trk>\n";
}

void appendGpxEnd(std::string* out)
{
    *out += "</gpx>\n";
}

}  // namespace pinorama
