// The values that XMP writes as texts: coordinates and other numbers.

#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace pinorama {

// A coordinate: degrees without sign, and the letter of its hemisphere, 0 when nothing says it.
struct XmpCoordinate {
    double degrees;
    char letter;
};

// Reads "48,51.504N", "48,51,30N" or plain degrees.
//
//   reference  what a property of its own says of the hemisphere; empty for nothing. It counts for
//              plain degrees only.
//   letters    those of the two hemispheres, the positive one first: "NS", "EW".
//   max        degrees at most.
//
// Nothing for any other text.
std::optional<XmpCoordinate> coordinateOfXmp(std::string_view text, std::string_view reference,
                                             const char* letters, double max);

// Reads "633/5" or "126.6". Nothing for any other text, for a denominator of 0 and for what is no
// finite number.
std::optional<double> numberOfXmp(std::string_view text);

}  // namespace pinorama
