#include "cli/batch_work.h"

#include "base/printable.h"
#include "cli/csv_line.h"
#include "cli/diagnostic.h"
#include "cli/geojson_feature.h"
#include "cli/json_line.h"
#include "cli/kmz_document.h"
#include "cli/list_entry.h"
#include "cli/text_block.h"
#include "globe/kml_places.h"

#include <iterator>
#include <utility>

#include <sys/stat.h>

namespace pinorama {
namespace {
bool isFolder(const FileReport& report)
{
    struct stat status;
    return !report.size && report.error.empty() && stat(report.path.c_str(), &status) == 0 &&
           S_ISDIR(status.st_mode);
}

void appendPlacemark(const FileReport& report, std::string_view thumbnail, std::string* out)
{
    if (!report.position || !report.place) return;
    const PlaceReport& place = *report.place;
    appendKmlPlace(
        {.name = report.name,
         .path = report.path,
         .caption = place.description ? std::string_view(*place.description) : std::string_view(),
         .taken = report.taken,
         .thumbnail = thumbnail,
         .latitude = report.position->latitude,
         .longitude = report.position->longitude,
         .altitude = report.altitude,
         .heading = report.heading,
         .distance = place.distance,
         .tilt = place.tilt},
        out);
}
}  // namespace

void BatchResult::add(BatchResult following)
{
    items += following.items;
    output += following.output;
    placemarks += following.placemarks;
    diagnostics += following.diagnostics;
    files += following.files;
    located += following.located;
    failed += following.failed;
    hits.insert(hits.end(), std::make_move_iterator(following.hits.begin()),
                std::make_move_iterator(following.hits.end()));
    subfolders.insert(subfolders.end(), std::make_move_iterator(following.subfolders.begin()),
                      std::make_move_iterator(following.subfolders.end()));
    changes.insert(changes.end(), std::make_move_iterator(following.changes.begin()),
                   std::make_move_iterator(following.changes.end()));
    track.insert(track.end(), following.track.begin(), following.track.end());
}

BatchWork::BatchWork(ReportOptions options, PlaceFilter filter, ReaderLauncher launcher)
    : output_(options.output),
      isRaw_(options.isRaw),
      hasTrack_(options.hasTrack),
      isSorted_(options.isSorted),
      filter_(std::move(filter)),
      thumbnailer_(options.thumbnailer),
      reporter_(std::move(options), std::move(launcher))
{
}

BatchResult BatchWork::process(std::span<const std::string> paths, int alarm)
{
    BatchResult result;
    std::vector<FileReport> reports = reporter_.report(paths, alarm);
    for (std::size_t i = 0; i < reports.size(); i++) {
        FileReport& report = reports[i];
        if (!filter_ || filter_(&report)) addOutput(report, paths[i], &result);
        if (!report.error.empty()) {
            appendDiagnostic(report.path + ": " + report.error, &result.diagnostics);
            result.failed++;
        }
        // Whoever names a folder most likely wants the pictures in it.
        if (output_ == Output::text && isFolder(report)) {
            appendDiagnostic(report.path + ": is a folder; -r reads the pictures in it",
                             &result.diagnostics);
        }
        if (report.isLocated()) result.located++;
        result.files++;
    }
    return result;
}

void BatchWork::addOutput(const FileReport& report, const std::string& path,
                          BatchResult* result) const
{
    if (isSorted_) {
        const double metres = report.nearness ? report.nearness->metres : 0.0;
        Hit& hit = result->hits.emplace_back(Hit{metres, report.path});
        appendOutput(report, path, &hit.text);
        // Thumbnails need not wait for their order.
        if (output_ == Output::kmz) addKmzPieces(report, path, &hit.text, &result->output);
    } else if (output_ == Output::kmz) {
        addKmzPieces(report, path, &result->output, &result->output);
    } else {
        appendOutput(report, path, &result->output);
    }
    result->placemarks += report.placemark;
    if (!hasTrack_) return;
    if (const auto point = trackPointOf(report)) result->track.push_back(*point);
}

void BatchWork::appendOutput(const FileReport& report, std::string_view path,
                             std::string* out) const
{
    switch (output_) {
    case Output::json: appendJsonLine(report, out); break;
    case Output::csv: appendCsvLine(report, {isRaw_, report.nearness.has_value()}, out); break;
    case Output::text:
        if (!report.error.empty()) break;
        *out += separatorOf(output_);
        appendTextBlock(report, out);
        break;
    case Output::kml: appendPlacemark(report, {}, out); break;
    case Output::kmz: break;  // see addKmzPieces
    case Output::geojson: appendGeoJsonFeature(report, out); break;
    case Output::gpx: appendGpxWaypoint(report, out); break;
    case Output::list: appendListEntry(report, path, out); break;
    case Output::webAddress:
    case Output::catalogueAddress:
        if (report.address.empty()) break;
        appendPrintable(report.address, out);  // the template is data that anybody may edit
        *out += '\n';
        break;
    case Output::script:
        if (!report.address.empty()) *out += report.address + '\n';
        break;
    case Output::nothing: break;
    }
}

// The thumbnail of a located picture, and its placemark that shows it.
void BatchWork::addKmzPieces(const FileReport& report, const std::string& path, std::string* kml,
                             std::string* thumbnails) const
{
    if (!report.position) return;
    std::string name;
    const std::string jpeg = thumbnailer_ ? thumbnailer_(path) : std::string();
    if (!jpeg.empty()) {
        name = thumbnailName(path);
        appendThumbnailPiece(name, jpeg, thumbnails);
    }
    std::string placemark;
    appendPlacemark(report, name, &placemark);
    appendKmlPiece(placemark, kml);
}

std::string beginningOfOutput(const Options& options)
{
    std::string beginning;
    switch (options.output) {
    case Output::csv:
        appendCsvHeader({options.isRaw, !options.nearPlace.empty()}, &beginning);
        break;
    case Output::kml: appendKmlBeginning(&beginning); break;
    case Output::kmz: {
        std::string kml;
        appendKmlBeginning(&kml);
        appendKmlPiece(kml, &beginning);
        break;
    }
    case Output::geojson: appendGeoJsonBeginning(&beginning); break;
    case Output::gpx: appendGpxBeginning(&beginning); break;
    default: break;
    }
    return beginning;
}

std::string endOfOutput(const Options& options, std::vector<TrackPoint> track)
{
    std::string end;
    switch (options.output) {
    case Output::kml: appendKmlEnd(&end); break;
    case Output::kmz: {
        std::string kml;
        appendKmlEnd(&kml);
        appendKmlPiece(kml, &end);
        break;
    }
    case Output::geojson: appendGeoJsonEnd(&end); break;
    case Output::gpx:
        appendGpxTrack(std::move(track), &end);
        appendGpxEnd(&end);
        break;
    default: break;
    }
    return end;
}

std::string_view separatorOf(Output output)
{
    switch (output) {
    case Output::text: return "\n";
    case Output::geojson: return kFeatureSeparator;
    default: return {};
    }
}

}  // namespace pinorama
