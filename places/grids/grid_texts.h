// A position in the grids of paper maps, computed by GeographicLib on the ellipsoid WGS 84.
// Latitude -90 to 90 and longitude -180 to 180 in degrees; anything else gives an empty text. The
// texts are ASCII and give the position back to within a metre.

#pragma once

#include <string>

namespace pinorama {

// UTM with the letter of the latitude band, easting and northing in whole metres: "19F 544807
// 3927031". Empty from 84 degrees north and beyond 80 degrees south, where UTM ends.
std::string utmText(double latitude, double longitude);

// MGRS to the metre, "19F EV 44806 27031"; near the poles without a zone, "Z AH 00000 00000". The
// metres are cut off, as its standard demands: the text names the square that the position is in.
std::string mgrsText(double latitude, double longitude);

}  // namespace pinorama
