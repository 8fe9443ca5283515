// The forms in which globe programs take a view: KML texts and Marble's zoom value.

#pragma once

#include <string>

#include "globe/globe_view.h"

namespace pinorama {

// A KML 2.2 document that holds the view as its LookAt and nothing else: opening it flies there
// once. UTF-8. Tilt is kept between 0 and 90 degrees, which is what KML allows.
std::string makeLookAtDocument(const GlobeView& view);

// The line of a ViewSync query file that makes a running Google Earth Pro fly to the view.
std::string makeFlyToQuery(const GlobeView& view);

// The file that a drivers.ini names in its setting ViewSync/queryFile; empty when it names none.
std::string queryFileOfDriverSettings(const std::string& driverSettings);

// Marble's zoom for a camera distance in metres. Its map theme may stop short of it.
int marbleZoom(double distance);

}  // namespace pinorama
