// A place on the Earth, in WGS 84.

#pragma once

namespace pinorama {

struct Position {
    double latitude;   // degrees, -90 to 90, negative in the south
    double longitude;  // degrees, -180 to 180, negative in the west
};

}  // namespace pinorama
