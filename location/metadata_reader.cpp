#include "location/metadata_reader.h"

#include "base/status.h"
#include "lib/files/file_reference.h"
#include "lib/objects/object_holder.h"
#include "lib/objects/shared_text.h"
#include "lib/strings/string_holder.h"
#include "lib/strings/tov_search.h"
#include "lib/strings/tov_string.h"
#include "location/dictionary_getters.h"
#include "location/picture_source.h"
#include "location/property_keys.h"

using namespace pinorama;

namespace {

constexpr char kTiltMark[] = "tilt:";
constexpr std::int32_t kTiltMarkLength = 5;
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

TovDictionaryRef dictionaryOf(TovDictionaryRef properties, TovStringRef key)
{
    return asDictionary(TovDictionaryGetValue(properties, key));
}

void copyText(TovDictionaryRef iptc, TovStringRef key, TovStringRef* field)
{
    TovStringRef text = convGetTovStringRef(iptc, key);
    if (text != nullptr) *field = createString(unitsOf(text));
}

void readPlaceTexts(TovDictionaryRef iptc, fileInfoRecord* record)
{
    copyText(iptc, kCGImagePropertyIPTCCity, &record->city);
    copyText(iptc, kCGImagePropertyIPTCProvinceState, &record->state);
    copyText(iptc, kCGImagePropertyIPTCCountryPrimaryLocationName, &record->country);
    copyText(iptc, kCGImagePropertyIPTCCaptionAbstract, &record->description);
}

// The first character of a reference text, low 8 bits; `otherwise` when it is missing or empty.
char letterOf(TovDictionaryRef gps, TovStringRef key, char otherwise)
{
    TovStringRef reference = convGetTovStringRef(gps, key);
    if (TovStringGetLength(reference) == 0) return otherwise;
    return static_cast<char>(TovStringGetUniChar(reference, 0) & 0xff);
}

void readPosition(TovDictionaryRef gps, fileInfoRecord* record)
{
    record->latti = convGetDouble(gps, kCGImagePropertyGPSLatitude);
    record->refLatti = letterOf(gps, kCGImagePropertyGPSLatitudeRef, 0);
    record->longi = convGetDouble(gps, kCGImagePropertyGPSLongitude);
    // The letter of the latitude carries over; whoever applies the sign looks for W only.
    record->refLongi = letterOf(gps, kCGImagePropertyGPSLongitudeRef, record->refLatti);

    record->altitude = convGetDouble(gps, kCGImagePropertyGPSAltitude);
    // Exif stores altitude unsigned; reference 1 means below sea level.
    if (convGetUInt32(gps, kCGImagePropertyGPSAltitudeRef) != 0) {
        record->altitude = -record->altitude;
    }
}

void readDistance(TovDictionaryRef gps, fileInfoRecord* record)
{
    TovStringRef reference = convGetTovStringRef(gps, kCGImagePropertyGPSDestDistanceRef);
    if (reference == nullptr) return;
    for (const auto& unit : kDistanceUnits) {
        if (TovStringCompare(reference, unit.reference, kIgnoreCase) == 0) {
            record->distance =
                convGetDouble(gps, kCGImagePropertyGPSDestDistance) * unit.multiplier;
        }
    }
}

// Exif has no field for the tilt of a view: a text in the field of the satellites carries it.
void readTilt(TovDictionaryRef gps, fileInfoRecord* record)
{
    TovStringRef satellites = convGetTovStringRef(gps, kCGImagePropertyGPSSatellites);
    if (!TovStringBeginsWithCString(satellites, kTiltMark, kIgnoreCase)) return;
    const StringHolder number(TovStringCreateWithSubstring(
        satellites, kTiltMarkLength, TovStringGetLength(satellites) - kTiltMarkLength));
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
    const ObjectHolder<TovDictionaryRef> properties(gpsCopyImageProperties(ref));
    return gpsFillInfoFromProperties(properties.get(), record);
}

std::int32_t gpsFillInfoFromProperties(TovDictionaryRef properties, fileInfoRecord* record)
{
    if (properties == nullptr || record == nullptr) return kErrNothingUsable;

    const TovDictionaryRef iptc = dictionaryOf(properties, kCGImagePropertyIPTCDictionary);
    if (iptc != nullptr) readPlaceTexts(iptc, record);

    const TovDictionaryRef gps = dictionaryOf(properties, kCGImagePropertyGPSDictionary);
    if (gps == nullptr) return kErrNothingUsable;
    readPosition(gps, record);
    readDistance(gps, record);
    readTilt(gps, record);
    record->azimuth = convGetDouble(gps, kCGImagePropertyGPSImgDirection);

    // Not a number counts as not zero.
    const bool isUsable = record->latti != 0.0 && record->longi != 0.0;
    return isUsable ? kErrNone : kErrNothingUsable;
}

TovDictionaryRef gpsCopyImageProperties(const FSRef* ref)
{
    return ref == nullptr ? nullptr : copyPictureProperties(ref->path);
}
