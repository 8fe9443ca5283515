// The filter of a search, out of the options --near, --within and --no-position.

#pragma once

#include "cli/options.h"
#include "cli/place_filter.h"
#include "nearby/place_circle.h"

#include <optional>
#include <string>

namespace pinorama {

// Reads the value of --near: "LAT,LON" or "LAT,LON,METRES" in signed decimal degrees, or a picture,
// possibly followed by ",METRES". A file whose name looks like numbers is meant by "./".
//
// Nothing for a place that is not on the Earth, a radius that is none, and a picture that cannot be
// read or has no position; `outError` then receives the error message.
std::optional<PlaceCircle> readNearPlace(const std::string& value, std::string* outError);

// See FilterMaker in cli/info_program.h.
bool makeSearchFilter(const Options& options, PlaceFilter* outFilter, std::string* outError);

}  // namespace pinorama
