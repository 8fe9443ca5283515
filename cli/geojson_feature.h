// Reports as the features of one GeoJSON document (RFC 7946): points in WGS 84, longitude first.
// Pictures without a position are no part of it.

#pragma once

#include "cli/file_report.h"

#include <string>

namespace pinorama {

// Separates two features. It stands before each of them; whoever prints drops the first one.
constexpr std::string_view kFeatureSeparator = ",\n";

void appendGeoJsonBeginning(std::string* out);

// Appends a separator and the feature of one report; nothing for one without a position.
void appendGeoJsonFeature(const FileReport& report, std::string* out);

void appendGeoJsonEnd(std::string* out);

}  // namespace pinorama
