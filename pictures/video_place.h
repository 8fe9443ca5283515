// Where a video was taken, as MOV and MP4 files say it in their `moov` box.

#pragma once

#include <optional>
#include <string_view>

#include "pictures/embedded_metadata.h"
#include "pictures/step_budget.h"

namespace pinorama {

// The boxes of `moov` that may say it; empty where there is none.
struct MovieBoxes {
    ByteBlock meta;  // with QuickTime's keys
    ByteBlock udta;  // user data
};

// Finds the position. Of several the first of these counts: QuickTime's key
// "com.apple.quicktime.location.ISO6709", with or without a language; a text `©xyz` in the user
// data; the same in the list of items there; the box `loci` of 3GPP.
//
// Malformed positions count as absent, and so do those that are no place on Earth.
// Source: QuickTime File Format, "Metadata"; 3GPP TS 26.244, 8.10.
std::optional<StatedPlace> findVideoPlace(const MovieBoxes& boxes, StepBudget& budget);

// Reads a position such as "+48.8584+002.2945+330.0/": latitude, longitude and perhaps altitude.
// Degrees may be followed by minutes and seconds without a sign between them. Nothing for any other
// text.
// Source: ISO 6709, Annex H.
std::optional<StatedPlace> placeOfIso6709(std::string_view text);

}  // namespace pinorama
