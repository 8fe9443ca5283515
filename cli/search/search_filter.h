// The filter of a search, out of the options --near, --within and --no-position.

#pragma once

#include "cli/options.h"
#include "cli/place_filter.h"
#include "nearby/place_area.h"
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

class SearchFilter {
public:
    // Reads the place and the area of the options. Nothing for one that is malformed or cannot be
    // read; `outError` then receives the error message.
    static std::optional<SearchFilter> make(const Options& options, std::string* outError);

    // Whether a camera picture with this position, or without one, is printed.
    bool matches(const std::optional<Position>& position) const;

    // See PlaceFilter.
    bool operator()(FileReport* report) const;

private:
    SearchFilter() = default;

    std::optional<PlaceCircle> circle_{};
    std::optional<PlaceArea> area_{};
    bool withoutPosition_ = false;
};

}  // namespace pinorama
