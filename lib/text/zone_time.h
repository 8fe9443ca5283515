// The clocks of time zones at any date, by the names of the zones in the tz database,
// "Europe/Rome". Instants and wall-clock times count seconds since 1970-01-01 00:00, the one in
// UTC, the other on the clock of the zone.

#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "lib/objects/string.h"

namespace pinorama {

// The seconds that the clock of the zone was ahead of UTC at an instant; negative to the west.
// Nothing if there is no such zone.
std::optional<std::int64_t> zoneOffsetAt(const std::string& zone, std::int64_t instant);

// The instant of a wall-clock time. A time that the clock shows twice, or skips, is taken with one
// of the two offsets around the change. Nothing if there is no such zone.
std::optional<std::int64_t> instantInZone(const std::string& zone, std::int64_t clockTime);

// Returns a new text: what the time of the zone was called at an instant, in the first of
// textLanguages: "Central European Summer Time", or "GMT-03:00" where it has no name. Null if there
// is no such zone, and if memory runs out.
[[nodiscard]] TovStringRef createZoneTimeName(const std::string& zone, std::int64_t instant);

}  // namespace pinorama
