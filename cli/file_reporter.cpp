#include "cli/file_reporter.h"

#include "base/status.h"
#include "base/time_zone.h"
#include "base/utf8.h"
#include "cli/iso_time.h"
#include "cli/source_report.h"
#include "globe/fly_to.h"
#include "globe/kml_document.h"
#include "globe/web_services.h"
#include "globe/xml_escape.h"
#include "lib/files/file_reference.h"
#include "lib/files/path_text.h"
#include "lib/ui/string_tables.h"
#include "location/coordinate_text.h"
#include "location/file_facts.h"
#include "location/metadata_reader.h"
#include "location/picture_source.h"
#include "location/property_dictionary.h"
#include "pictures/merged_properties.h"
#include "pictures/sidecar_file.h"
#include "places/words/taken_words.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstring>
#include <iterator>
#include <utility>

namespace pinorama {
namespace {
std::string utf8Of(const TovString* text)
{
    return displayUTF8(unitsOf(text));
}

// The same for a text that the caller owns; releases it.
std::string takeUTF8(TovStringRef text)
{
    const StringHolder owned(text);
    return utf8Of(owned.get());
}

std::optional<std::string> optionalUTF8(const TovString* text)
{
    if (text == nullptr) return std::nullopt;
    return utf8Of(text);
}

std::string letterText(char letter)
{
    if (letter == 0) return {};
    const char16_t unit = static_cast<unsigned char>(letter);
    return displayUTF8({&unit, 1});
}

PlaceReport placeOf(std::int32_t result, const fileInfoRecord& record)
{
    return {.result = result,
            .latitude = record.latti,
            .longitude = record.longi,
            .latitudeLetter = letterText(record.refLatti),
            .longitudeLetter = letterText(record.refLongi),
            .altitude = record.altitude,
            .distance = record.distance,
            .azimuth = record.azimuth,
            .tilt = record.tilt,
            .city = optionalUTF8(record.city),
            .state = optionalUTF8(record.state),
            .country = optionalUTF8(record.country),
            .description = optionalUTF8(record.description)};
}

// The status of a picture whose attributes could not be read.
std::int32_t statusOfMissing(TovStringRef path)
{
    FSRef ref;
    const std::int32_t status = feMakeFSRefFromPath(path, &ref);
    return status == kErrNone ? kErrNothingUsable : status;
}

void fillPosition(const fileInfoRecord& record, FileReport* report)
{
    report->coordinate = takeUTF8(gpsMakePositionText(record));
    report->altitudeText = takeUTF8(gpsMakeAltitudeText(record));
    report->direction = takeUTF8(gpsMakeDirectionText(record));
}

// Files can contain any number. What is not on the Earth would be drawn somewhere else by every
// program that reads it.
std::optional<Position> positionOf(const fileInfoRecord& record)
{
    const Position position{signedLatitude(record), signedLongitude(record)};
    const bool isOnEarth =
        std::abs(position.latitude) <= 90.0 && std::abs(position.longitude) <= 180.0;
    return isOnEarth ? std::optional(position) : std::nullopt;
}

std::optional<double> finite(std::optional<double> number)
{
    return number && std::isfinite(*number) ? number : std::nullopt;
}

void fillMeasures(const PictureProperties& properties, const fileInfoRecord& record,
                  FileReport* report)
{
    // Cameras call sea level 0 metres below it; plus 0, that is 0 and not -0.
    if (properties.hasGps && properties.altitude) report->altitude = finite(record.altitude + 0.0);
    if (properties.hasGps) report->heading = finite(properties.imageDirection);
    if (!properties.taken) return;
    const TakenTime taken{*properties.taken, properties.takenOffset,
                          properties.isTakenBySatellites};
    report->taken = isoTime(taken.clockTime, taken.offset);
    if (report->taken.empty()) return;
    const std::int64_t instant = instantOf(taken).value_or(taken.clockTime);
    if (!isoTime(instant, 0).empty()) report->takenInstant = instant;
}

std::string scriptOf(const fileInfoRecord& record)
{
    return takeUTF8(gpsMakeFlyToScript(signedLatitude(record), signedLongitude(record),
                                       record.azimuth, record.tilt, record.distance));
}

std::string addressOf(const fileInfoRecord& record, TovStringRef path, const ReportOptions& options)
{
    switch (options.output) {
    case Output::webAddress:
        return takeUTF8(appMakeSafeWebServiceURL(options.serviceTemplate.get(), &record, path));
    case Output::catalogueAddress: return takeUTF8(appMakeCatalogueURL(&record));
    case Output::script: return scriptOf(record);
    default: return {};
    }
}

std::string placemarkOf(const fileInfoRecord& record, TovStringRef path)
{
    const StringHolder name(gpsCopyFileName(path));
    const StringHolder escaped(gpsEscapeForXML(unitsOf(name.get())));
    StringHolder piece(TovStringCreateMutable());
    if (!escaped || !piece) return {};
    gpsInsertKmlPlacemark(piece.slot(), record, escaped.get());
    return utf8Of(piece.get());
}

// The keys of the units of sizes and of the form of a coordinate.
constexpr std::u16string_view kNeededTexts[] = {u"STR#1001:46", u"STR#1001:3", u"STR#1001:31",
                                                u"STR#1001:123", u"11"};
}  // namespace

bool showsFields(Output output)
{
    return output == Output::text || output == Output::json || output == Output::csv;
}

bool isPlaceDocument(Output output)
{
    return output == Output::kml || output == Output::kmz || output == Output::geojson ||
           output == Output::gpx;
}

bool namesPlaces(Output output)
{
    return output == Output::text || output == Output::json;
}

bool prepareTexts()
{
    (void)utcOffsetAt(0);
    return std::all_of(std::begin(kNeededTexts), std::end(kNeededTexts), iuHasText);
}

FileReporter::FileReporter(ReportOptions options, ReaderLauncher launcher,
                           const ReaderLimits& limits)
    : options_(std::move(options)), reader_(std::move(launcher), limits)
{
    reader_.setReadsMore(readsMoreKinds());
}

void FileReporter::expect(std::span<const std::string> paths)
{
    const bool isNeeded = std::any_of(paths.begin(), paths.end(), [this](const std::string& path) {
        return accepted_.accepts(path);
    });
    if (isNeeded) reader_.start();
    isOnlyFile_ = paths.size() == 1;
}

void FileReporter::warmUp()
{
    if (!showsFields(options_.output)) return;
    FileReport nothing{};
    fillFacts({.size = 0}, &nothing);
    fillPosition({}, &nothing);
    if (namesPlaces(options_.output)) (void)namePlace(places_, 0, 0);
}

std::vector<FileReport> FileReporter::report(std::span<const std::string> paths, int alarm)
{
    std::vector<FileReport> reports(paths.size());
    std::vector<OpenFile> files;
    std::vector<int> descriptors;
    files.reserve(paths.size());
    descriptors.reserve(paths.size());
    for (std::size_t i = 0; i < paths.size(); i++) {
        files.push_back(open(paths[i], &reports[i]));
        addDescriptors(files[i], &descriptors);
    }
    // The reader starts while the formatters are created.
    if (!descriptors.empty()) reader_.start();
    for (std::size_t i = 0; i < paths.size(); i++) fillFileFields(files[i], &reports[i]);

    std::vector<PropertyResult> replies;
    if (!descriptors.empty()) replies = reader_.readProperties(descriptors, alarm);
    // The reader ends while its reply is formatted.
    if (isOnlyFile_) reader_.dismiss();
    std::span<PropertyResult> left = replies;
    for (std::size_t i = 0; i < paths.size(); i++) {
        fileInfoRecord record{};
        gpsPrepareInfoRecord(&record);
        fillPlace(files[i], takeReply(files[i], &left), &record, &reports[i]);
        gpsReleaseInfoRecord(&record);
    }
    return reports;
}

FileReport FileReporter::report(const std::string& path, fileInfoRecord* record)
{
    FileReport report{};
    const OpenFile file = open(path, &report);
    std::vector<int> descriptors;
    addDescriptors(file, &descriptors);
    std::vector<PropertyResult> replies;
    if (!descriptors.empty()) replies = reader_.readProperties(descriptors, -1);
    std::span<PropertyResult> left = replies;
    fillFileFields(file, &report);
    fillPlace(file, takeReply(file, &left), record, &report);
    return report;
}

void FileReporter::addDescriptors(const OpenFile& file, std::vector<int>* descriptors)
{
    if (file.picture.isOpen()) descriptors->push_back(file.picture.descriptor());
    if (file.sidecar.isOpen()) descriptors->push_back(file.sidecar.descriptor());
}

// Takes the replies on a picture and its sidecar off the front of all replies, as one.
PropertyResult FileReporter::takeReply(const OpenFile& file, std::span<PropertyResult>* replies)
{
    const auto takeFront = [replies] {
        PropertyResult reply = std::move(replies->front());
        *replies = replies->subspan(1);
        return reply;
    };
    PropertyResult reply = file.picture.isOpen() ? takeFront() : PropertyResult{};
    if (!file.sidecar.isOpen()) return reply;
    const PropertyResult sidecar = takeFront();
    const bool isRead =
        reply.outcome == ReadOutcome::found || reply.outcome == ReadOutcome::nothing;
    if (isRead && sidecar.outcome == ReadOutcome::found) {
        reply.outcome = ReadOutcome::found;
        addMissing(reply.properties, sidecar.properties, ValueSource::sidecar);
    }
    return reply;
}

// Opens a camera picture, and reads the attributes of any file. Errors are reported from here: for
// the reader of positions, a picture without one and a picture that may not be opened are the same.
FileReporter::OpenFile FileReporter::open(const std::string& path, FileReport* report)
{
    OpenFile file;
    file.path = StringHolder(createPathText(path));
    report->isAccepted = accepted_.accepts(path);
    if (report->isAccepted) file.picture = PictureFile(path);
    if (readsMoreKinds()) {
        report->source.emplace();
        if (file.picture.isOpen()) file.sidecar = openSidecar(path);
    }
    file.attributes = file.picture.isOpen() ? file.picture.attributes() : attributesOf(path);
    if (!file.attributes) {
        report->error = std::strerror(errno);
    } else if (file.attributes->isRegular && file.picture.error() != 0) {
        report->error = std::strerror(file.picture.error());
    }
    return file;
}

void FileReporter::fillFacts(const fileFacts& facts, FileReport* report)
{
    report->size = facts.size;
    report->sizeText = takeUTF8(gpsMakeFileSizeText(facts));
    if (modified_.date != facts.modified) {
        modified_ = {facts.modified, takeUTF8(gpsMakeModifiedText(facts))};
    }
    report->modified = modified_.text;
    if (created_.date != facts.created) {
        created_ = {facts.created, takeUTF8(gpsMakeCreatedText(facts))};
    }
    report->created = created_.text;
}

void FileReporter::fillFileFields(const OpenFile& file, FileReport* report)
{
    report->path = utf8Of(file.path.get());
    if (!showsFields(options_.output) && !isPlaceDocument(options_.output)) return;
    report->name = takeUTF8(gpsCopyFileName(file.path.get()));
    if (!showsFields(options_.output)) return;
    fillFacts(file.attributes ? gpsMakeFileFacts(*file.attributes) : fileFacts{}, report);
    if (!file.attributes) return;
    report->modifiedTime = isoTime(file.attributes->modified, 0);
    if (file.attributes->created) report->createdTime = isoTime(*file.attributes->created, 0);
}

// Fills in the result of reading a file.
void FileReporter::fillPlace(const OpenFile& file, const PropertyResult& reply,
                             fileInfoRecord* record, FileReport* report)
{
    using Outcome = ReadOutcome;
    if (!report->isAccepted) return;

    std::int32_t result = kErrNothingUsable;
    if (!file.attributes) {
        result = statusOfMissing(file.path.get());
    } else if (file.picture.isOpen() && reply.outcome == Outcome::failed) {
        report->error = "reading the picture failed";
    } else if (file.picture.isOpen() && reply.outcome == Outcome::stuck) {
        report->error = "reading the picture took too long";
    } else if (file.picture.isOpen() && reply.outcome == Outcome::noReader) {
        report->error = "pictures cannot be read safely on this system";
    } else if (reply.outcome == Outcome::found) {
        const ObjectHolder<TovDictionaryRef> properties(createPropertyDictionary(reply.properties));
        result = gpsFillInfoFromProperties(properties.get(), record);
        fillMeasures(reply.properties, *record, report);
        if (readsMoreKinds()) report->source = sourceReportOf(reply.properties);
    }
    report->place = placeOf(result, *record);
    if (result != kErrNone) return;

    report->position = positionOf(*record);
    if (report->position && namesPlaces(options_.output)) {
        const Position& position = *report->position;
        report->namedPlace = namePlace(places_, position.latitude, position.longitude);
        if (const int error = places_.error(); error != 0) {
            report->error = std::string("the places cannot be read: ") + std::strerror(error);
        }
    }
    if (showsFields(options_.output)) fillPosition(*record, report);
    report->address = addressOf(*record, file.path.get(), options_);
    if (options_.placemarks) report->placemark = placemarkOf(*record, file.path.get());
}

}  // namespace pinorama
