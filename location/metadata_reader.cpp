#include "location/metadata_reader.h"

#include "base/memory_guard.h"
#include "base/status.h"
#include "lib/files/file_reference.h"
#include "lib/objects/shared_text.h"
#include "lib/strings/string_holder.h"
#include "lib/strings/tov_search.h"
#include "lib/strings/tov_string.h"
#include "location/picture_source.h"
#include "location/property_dictionary.h"

using namespace pinorama;

namespace {

using Text = std::optional<std::u16string>;

constexpr char kTiltTag[] = "tilt:";
constexpr std::int32_t kTiltTagLength = 5;
constexpr std::uint8_t kIgnoreCase = 0;

constinit TovString gKilometres = sharedText(u"K");
constinit TovString gMiles = sharedText(u"M");
constinit TovString gKnots = sharedText(u"N");

// The last two are not the metres of a mile and of a nautical mile. Intended: views that were
// stored with them would move.
const struct {
    TovStringRef reference;
    double multiplier;
} kDistanceUnits[] = {{&gKilometres, 1000.0}, {&gMiles, 621.3711922}, {&gKnots, 5399.568}};

void copyText(const Text& text, TovStringRef* field)
{
    if (text) *field = createString(*text);
}

void fillPlaceTexts(const PictureProperties& iptc, fileInfoRecord* record)
{
    copyText(iptc.city, &record->city);
    copyText(iptc.state, &record->state);
    copyText(iptc.country, &record->country);
    copyText(iptc.caption, &record->description);
}

// The first character of a reference text, low 8 bits; `otherwise` when it is missing or empty.
char letterOf(const Text& reference, char otherwise)
{
    if (!reference || reference->empty()) return otherwise;
    return static_cast<char>(reference->front() & 0xff);
}

void fillPosition(const PictureProperties& gps, fileInfoRecord* record)
{
    record->latti = gps.latitude.value_or(0.0);
    record->refLatti = letterOf(gps.latitudeReference, 0);
    record->longi = gps.longitude.value_or(0.0);
    // The letter of the latitude carries over; whoever applies the sign looks for W only.
    record->refLongi = letterOf(gps.longitudeReference, record->refLatti);

    record->altitude = gps.altitude.value_or(0.0);
    // Exif stores altitude unsigned; reference 1 means below sea level. 32 bits of it are read.
    if (static_cast<std::uint32_t>(gps.altitudeReference.value_or(0)) != 0) {
        record->altitude = -record->altitude;
    }
}

void fillDistance(const PictureProperties& gps, fileInfoRecord* record)
{
    if (!gps.destinationDistanceReference) return;
    const StringHolder reference(createString(*gps.destinationDistanceReference));
    for (const auto& unit : kDistanceUnits) {
        if (TovStringCompare(reference.get(), unit.reference, kIgnoreCase) == 0) {
            record->distance = gps.destinationDistance.value_or(0.0) * unit.multiplier;
        }
    }
}

// Exif has no field for the tilt of a view: a text in the field of the satellites carries it.
void fillTilt(const PictureProperties& gps, fileInfoRecord* record)
{
    if (!gps.satellites) return;
    const StringHolder satellites(createString(*gps.satellites));
    if (!TovStringBeginsWithCString(satellites.get(), kTiltTag, kIgnoreCase)) return;
    const StringHolder number(TovStringCreateWithSubstring(
        satellites.get(), kTiltTagLength, TovStringGetLength(satellites.get()) - kTiltTagLength));
    record->tilt = TovStringGetDoubleValue(number.get());
}
}  // namespace

std::int32_t gpsGetCoordinatesFromFilePath(TovStringRef path, fileInfoRecord* record)
{
    // The reference would end at a zero unit and name another file than the one that is shown.
    if (unitsOf(path).find(u'\0') != std::u16string_view::npos) return kErrNotFound;
    FSRef ref;
    const std::int32_t status = feMakeFSRefFromPath(path, &ref);
    if (status != kErrNone) return status;
    return gpsGetCoordinatesFromFile(&ref, record);
}

std::int32_t gpsGetCoordinatesFromFile(const FSRef* ref, fileInfoRecord* record)
{
    if (ref == nullptr) return kErrNothingUsable;
    return readInfoRecord(PictureFile(ref->path), record);
}

std::int32_t gpsFillInfoFromProperties(TovDictionaryRef properties, fileInfoRecord* record)
{
    if (properties == nullptr) return kErrNothingUsable;
    return fillInfoRecord(propertiesOfDictionary(properties), record);
}

TovDictionaryRef gpsCopyImageProperties(const FSRef* ref)
{
    if (ref == nullptr) return nullptr;
    return baseGuardMemory([&]() -> TovDictionaryRef {
        const std::optional<PictureProperties> properties = propertiesOf(PictureFile(ref->path));
        return properties ? createPropertyDictionary(*properties) : nullptr;
    });
}

std::int32_t pinorama::readInfoRecord(const PictureFile& picture, fileInfoRecord* record)
{
    const auto properties = baseGuardMemory([&] { return propertiesOf(picture); });
    return properties ? fillInfoRecord(*properties, record) : kErrNothingUsable;
}

std::int32_t pinorama::fillInfoRecord(const PictureProperties& properties, fileInfoRecord* record)
{
    if (record == nullptr) return kErrNothingUsable;
    if (properties.hasIptc) fillPlaceTexts(properties, record);
    if (!properties.hasGps) return kErrNothingUsable;
    fillPosition(properties, record);
    fillDistance(properties, record);
    fillTilt(properties, record);
    record->azimuth = properties.imageDirection.value_or(0.0);

    // Not a number counts as not zero.
    const bool isUsable = record->latti != 0.0 && record->longi != 0.0;
    return isUsable ? kErrNone : kErrNothingUsable;
}
