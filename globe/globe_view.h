// What a globe program is asked to show.

#pragma once

namespace pinorama {

struct GlobeView {
    double latitude;   // decimal degrees, negative in the south, -90 to 90
    double longitude;  // decimal degrees, negative in the west, -180 to 180
    double azimuth;    // degrees, the direction of view
    double tilt;       // degrees from straight down
    double distance;   // metres from the camera to the place
};

}  // namespace pinorama
