// When a picture was taken, one line for a person: "Jul 14, 2026, 2:05 PM (UTC-3)", in the time of
// the place where it can be known. The texts are in the table "Places" of the main bundle, in the
// user's language; dates are written as the user's locale writes them, time zones are named by ICU.

#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "lib/objects/string.h"

namespace pinorama {

// What a picture says of its time (pictures/picture_properties.h).
struct TakenTime {
    std::int64_t clockTime;              // seconds since 1970 on the clock that dated the picture
    std::optional<std::int64_t> offset;  // minutes that this clock was ahead of UTC, if known
    bool isFromSatellites = false;       // the clock is that of the satellites
};

// When that was, in UTC: seconds since 1970. Nothing if the offset of the clock is not known.
std::optional<std::int64_t> instantOf(const TakenTime& taken);

// Both return a new text: the line, and a sentence on which clock it is from and whose time zone it
// is in. Null if memory runs out.
//
//   zone  that of the place by its name in the tz database; empty if it is not known.
//
// What the camera's clock showed is written with the offset that the picture has for it. If that is
// not the offset of the place on that date, and if the time comes from the satellites, it is
// written in the time of the place, with its name as of that date. A camera's clock whose offset
// the picture does not have is taken to be set to the place.
[[nodiscard]] TovStringRef createTakenText(const TakenTime& taken, const std::string& zone);
[[nodiscard]] TovStringRef createTakenSource(const TakenTime& taken, const std::string& zone);

}  // namespace pinorama
