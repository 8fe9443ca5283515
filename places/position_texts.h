// A position written down in the forms that other programs and people take. Latitude -90 to 90 and
// longitude -180 to 180 in degrees, south and west negative; anything else gives an empty text.
// Texts are ASCII but for the degree sign, have a decimal point in every locale, and give the
// position back to within a metre. Decimal degrees are gpsMakeDecimalDegreesText of location/.

#pragma once

#include <string>

namespace pinorama {

// Degrees and decimal minutes with four decimals, as navigators write them: "S 54° 48.1133'   W 68°
// 18.1783'". Rounded as a whole, so that 60.0000 never shows.
std::string degreesMinutesText(double latitude, double longitude);

// The address of RFC 5870, "geo:-54.801889,-68.302972": six decimals, no altitude, which pictures
// give above the sea and the address would have above the ellipsoid. The poles have longitude 0.
std::string geoAddress(double latitude, double longitude);

// The Open Location Code of 12 digits, "47CWQW2W+6R84"; its cell is at most 0.6 by 0.9 metres. The
// north pole belongs to the northernmost cells.
std::string plusCode(double latitude, double longitude);

}  // namespace pinorama
