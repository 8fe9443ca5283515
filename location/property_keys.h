// The names of picture properties, as keys of the dictionaries that createPropertyDictionary makes.
// They are shared texts that need no memory and live as long as the process.

#pragma once

#include "lib/objects/string.h"

namespace pinorama {

// Image properties: dictionaries.
extern const TovStringRef kCGImagePropertyGPSDictionary;
extern const TovStringRef kCGImagePropertyIPTCDictionary;

// GPS dictionary: degrees, metres and distances are doubles, the altitude reference is an integer,
// the others are texts.
extern const TovStringRef kCGImagePropertyGPSLatitude;
extern const TovStringRef kCGImagePropertyGPSLatitudeRef;
extern const TovStringRef kCGImagePropertyGPSLongitude;
extern const TovStringRef kCGImagePropertyGPSLongitudeRef;
extern const TovStringRef kCGImagePropertyGPSAltitude;
extern const TovStringRef kCGImagePropertyGPSAltitudeRef;
extern const TovStringRef kCGImagePropertyGPSDestDistance;
extern const TovStringRef kCGImagePropertyGPSDestDistanceRef;
extern const TovStringRef kCGImagePropertyGPSSatellites;
extern const TovStringRef kCGImagePropertyGPSImgDirection;

// IPTC dictionary: texts.
extern const TovStringRef kCGImagePropertyIPTCCity;
extern const TovStringRef kCGImagePropertyIPTCProvinceState;
extern const TovStringRef kCGImagePropertyIPTCCountryPrimaryLocationName;
extern const TovStringRef kCGImagePropertyIPTCCaptionAbstract;

}  // namespace pinorama
