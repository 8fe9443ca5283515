// The texts of a location as the program shows them: coordinate, altitude and direction. The
// numbers in them have a decimal point in every locale.

#pragma once

#include "location/file_info_record.h"

// Returns a new text: one coordinate in degrees, minutes and seconds, in the form of the localised
// text number 11, which is given the letter, the degrees, the minutes and the seconds in that
// order.
//
//   value  decimal degrees, normally a magnitude; a negative value gives three negative parts.
//   ref    'N', 'S', 'E', 'W', or 0, which prints as nothing.
//
// The seconds are cut to tenths, never rounded, so 60 never shows: 12.99999999 is 12 degrees 59
// minutes 59.9 seconds. Null when memory runs out.
[[nodiscard]] TovStringRef gpsMakeCoordianteString(double value, char ref);

// Returns a new text: latitude, three blanks, longitude.
[[nodiscard]] TovStringRef gpsMakePositionText(const fileInfoRecord& record);

// Returns a new text for other programs: signed latitude, a comma and a blank, signed longitude, in
// decimal degrees with six decimals; south and west are negative, zero never is.
[[nodiscard]] TovStringRef gpsMakeDecimalDegreesText(const fileInfoRecord& record);

// Returns a new text: whole metres and " m", negative below sea level; empty for exactly 0. Halves
// are rounded to the even neighbour.
[[nodiscard]] TovStringRef gpsMakeAltitudeText(const fileInfoRecord& record);

// Returns a new text: degrees with one decimal and no unit; empty for exactly 0, which is due north
// as well as no direction.
[[nodiscard]] TovStringRef gpsMakeDirectionText(const fileInfoRecord& record);
