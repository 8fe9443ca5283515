// Flies a globe program to the place of a picture. The command's text is built by a function of its
// own, so that it can be examined; the numbers in it go to whatever globe link the program has
// installed.

#pragma once

#include "globe/globe_view.h"
#include "lib/strings/tov_string.h"

#include <cstdint>
#include <functional>

// Hands a view to a globe program, at once or later; must not block. Failures are the link's
// affair.
using GlobeLink = std::function<void(const pinorama::GlobeView& view)>;

// Installs the link that gpsFlyGoogleEarthToLocation uses; an empty one (the start) sends views
// nowhere. Returns the link before.
GlobeLink gpsSetGlobeLink(GlobeLink link);

// Sends a view to the globe link. Angles are degrees, the distance metres; latitude and longitude
// are signed. A distance or tilt that is zero in single precision (-0 and 1e-50 too) is replaced by
// 400 or 44. A latitude or longitude that is NaN or out of its range, and an azimuth, tilt or
// distance that is not finite, never reaches a globe. Always 0.
std::int32_t gpsFlyGoogleEarthToLocation(double latitude, double longitude, double azimuth,
                                         double tilt, double distance);

// Returns a new text: the command for the same view in the script language of the desktop it was
// first written for, six decimals for each number, lines separated by carriage returns. The
// arguments are as above, and nothing is refused. Distance and tilt are printed after rounding to
// single precision, the others in full. Null when memory runs out.
[[nodiscard]] TovStringRef gpsMakeFlyToScript(double latitude, double longitude, double azimuth,
                                              double tilt, double distance);
