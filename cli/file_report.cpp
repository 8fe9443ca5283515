#include "cli/file_report.h"

#include "lib/strings/string_holder.h"
#include "location/accepted_types.h"
#include "location/coordinate_text.h"
#include "location/file_facts.h"
#include "location/metadata_reader.h"
#include "platform/files/descriptor.h"
#include "platform/files/file_attributes.h"
#include "platform/files/path_text.h"
#include "platform/text/utf8.h"

#include <fcntl.h>

#include <cerrno>
#include <cstring>

namespace {
std::string utf8Of(const TovString* text)
{
    return platform::displayUTF8(platform::unitsOf(text));
}

// The same for a text that the caller owns, which is released.
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
    return platform::displayUTF8({&unit, 1});
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

void readPlace(TovStringRef path, FileReport* report)
{
    fileInfoRecord record{};
    gpsPrepareInfoRecord(&record);
    const std::int32_t result = gpsGetCoordinatesFromFilePath(path, &record);
    report->place = placeOf(result, record);
    if (result == 0) {
        report->coordinate = takeUTF8(gpsMakePositionText(record));
        report->altitudeText = takeUTF8(gpsMakeAltitudeText(record));
        report->direction = takeUTF8(gpsMakeDirectionText(record));
    }
    gpsReleaseInfoRecord(&record);
}

// Why a file cannot be read, or an empty text. "No position" and "may not be opened" are the same
// to the reader of positions, so the second is asked for here.
std::string reasonOfFailure(const std::string& path, const FileReport& report)
{
    if (!platform::attributesOf(path)) return std::strerror(errno);
    const bool mustOpen = report.size && report.place && report.place->result != 0;
    if (!mustOpen) return {};
    const platform::DescriptorHolder file(platform::openDescriptor(path.c_str(), O_RDONLY));
    return file ? std::string() : std::strerror(errno);
}
}  // namespace

FileReport reportOnFile(const std::string& path)
{
    FileReport report{};
    const StringHolder text(platform::createPathText(path));
    report.path = utf8Of(text.get());
    report.name = takeUTF8(gpsCopyFileName(text.get()));

    const fileFacts facts = gpsReadFileFacts(text.get());
    report.size = facts.size;
    report.sizeText = takeUTF8(gpsMakeFileSizeText(facts));
    report.modified = takeUTF8(gpsMakeModifiedText(facts));
    report.created = takeUTF8(gpsMakeCreatedText(facts));

    report.isAccepted = gpsIsAcceptedPath(text.get());
    if (report.isAccepted) readPlace(text.get(), &report);
    report.error = reasonOfFailure(path, report);
    return report;
}
