// What a picture's own metadata says about where and when it was taken and what it shows: the
// position of the Exif GPS directory, the time of Exif and the place texts of the IPTC record.
//
// The values are as the file has them: no range check, no rounding. They are plain, so that they
// can be read in another process than the one that shows them.

#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "pictures/byte_source.h"

namespace pinorama {

// Where a value was found.
enum class ValueSource : std::uint8_t {
    exif,
    iptc,
    xmp,        // in the picture
    quickTime,  // the position of a video
    sidecar,    // XMP in a file beside the picture
};
constexpr std::uint8_t kValueSourceCount = 5;

// The sources of those values of a picture that can have several. That of a value which is absent
// means nothing.
struct ValueSources {
    ValueSource position = ValueSource::exif;  // of latitude and longitude, with their references
    ValueSource altitude = ValueSource::exif;
    ValueSource direction = ValueSource::exif;
    ValueSource city = ValueSource::iptc;
    ValueSource state = ValueSource::iptc;
    ValueSource country = ValueSource::iptc;
    ValueSource caption = ValueSource::iptc;

    static constexpr ValueSources all(ValueSource source)
    {
        return {source, source, source, source, source, source, source};
    }
    friend bool operator==(const ValueSources&, const ValueSources&) = default;
};

struct PictureProperties {
    bool hasGps = false;             // the first image has a GPS directory, whatever stands in it
    std::optional<double> latitude;  // decimal degrees without sign; so is longitude
    std::optional<double> longitude;
    std::optional<double> altitude;                 // metres, sign in altitudeReference
    std::optional<std::int64_t> altitudeReference;  // 0 above sea level, 1 below
    std::optional<double> destinationDistance;      // in the unit of its reference
    std::optional<double> imageDirection;           // degrees
    // References are left out when the file has an empty text.
    std::optional<std::u16string> latitudeReference;
    std::optional<std::u16string> longitudeReference;
    std::optional<std::u16string> destinationDistanceReference;
    std::optional<std::u16string> satellites;
    std::optional<std::u16string>
        imageDirectionReference;  // "T" from true north, "M" from magnetic

    // Seconds since 1970-01-01 00:00 on the clock that dated the picture, and the minutes that this
    // clock was ahead of UTC, if they are known (pictures/exif_time.h).
    std::optional<std::int64_t> taken;
    std::optional<std::int64_t> takenOffset;
    bool isTakenBySatellites = false;  // that clock is the one of the satellites, in UTC

    bool hasIptc = false;  // there is an IPTC record, whatever stands in it
    std::optional<std::u16string> city;
    std::optional<std::u16string> state;
    std::optional<std::u16string> country;
    std::optional<std::u16string> caption;

    ValueSources sources{};

    friend bool operator==(const PictureProperties&, const PictureProperties&) = default;
};

// Reads the properties of the first image. What kind of picture it is is decided by its first
// bytes: JPEG, TIFF (which most raw formats are), Fujifilm RAF, Minolta MRW, Canon CRW.
//
// Damaged parts count as absent. Returns nothing when the bytes are none of these pictures.
// Source: Exif 2.32 (JEITA CP-3451E), TIFF 6.0, IPTC-IIM 4.2.
std::optional<PictureProperties> readPictureProperties(ByteSource& source);

// One way to have that done. Reads the properties of a regular file of `size` bytes that is open
// for reading. The descriptor is borrowed for the call. Nothing when it is no picture or could not
// be read.
using PropertySource =
    std::function<std::optional<PictureProperties>(int descriptor, std::uint64_t size)>;

}  // namespace pinorama
