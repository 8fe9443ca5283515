// Where one picture was taken: the record that the reader fills, the window shows, and the map,
// globe and export actions read.

#pragma once

#include "lib/objects/string.h"

// Plain values, passed by address. A signed coordinate is the magnitude negated for 'S' and 'W'.
struct fileInfoRecord {
    double latti;        // decimal degrees, a magnitude; the hemisphere is in refLatti
    double longi;        // the same, the hemisphere in refLongi
    char refLatti;       // 'N' or 'S' as in the file, 0 when the file has none
    char refLongi;       // 'E' or 'W'; latitude's letter when the file has only that one
    double altitude;     // metres, negative below sea level
    double distance;     // metres from which a globe looks at the place
    double azimuth;      // degrees, the direction in which the picture was taken
    double tilt;         // degrees by which a globe's view is tilted
    TovStringRef city;   // owned, may be null; so are the three below. Dropped by
    TovStringRef state;  // gpsReleaseInfoRecord
    TovStringRef country;
    TovStringRef description;
};

constexpr double kDefaultViewDistance = 1000.0;  // metres

// Makes a record ready to be read into: releases texts that an earlier reading left in it, sets
// every field to zero or null, and the distance to kDefaultViewDistance. A new record must have
// been zeroed ({}) before. Null is ignored.
void gpsPrepareInfoRecord(fileInfoRecord* record);

// Releases the four texts and sets them to null; the numbers stay. Null is ignored.
void gpsReleaseInfoRecord(fileInfoRecord* record);

namespace pinorama {

// Degrees with their sign: the magnitude, negated for 'S' and for 'W'. Every other letter leaves it
// as it is, and zero in the south is -0.0.
double signedLatitude(const fileInfoRecord& record);
double signedLongitude(const fileInfoRecord& record);

}  // namespace pinorama
