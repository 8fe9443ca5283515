// A view in the formats that globe programs accept: KML documents and Marble's zoom value.

#pragma once

#include <string>

#include "globe/globe_view.h"

namespace pinorama {

// A KML 2.2 document, in UTF-8, that contains only the view's LookAt: a globe that opens it flies
// there once. The tilt is clamped to 0 to 90 degrees, the range of KML.
std::string makeLookAtDocument(const GlobeView& view);

// The same with a placemark at the place, for programs that show only places: its name is the
// coordinate in decimal degrees. A second placemark, which cannot be seen, extends from the place
// as far as the camera is away from it, 100 m at least and 1000 km at most: some programs go only
// to what has an extent.
std::string makePlacemarkDocument(const GlobeView& view);

// The line of a ViewSync query file that makes a running Google Earth Pro fly to the view.
std::string makeFlyToQuery(const GlobeView& view);

// The file that the setting ViewSync/queryFile of a drivers.ini names; empty if it names none.
std::string queryFileOfDriverSettings(const std::string& driverSettings);

// Marble's zoom value for a camera distance in metres. A map theme may limit it further.
int marbleZoom(double distance);

}  // namespace pinorama
