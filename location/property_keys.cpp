#include "location/property_keys.h"

#include "lib/objects/shared_text.h"

namespace {
using platform::sharedText;

constinit TovString gGPSDictionary = sharedText(u"kCGImagePropertyGPSDictionary");
constinit TovString gIPTCDictionary = sharedText(u"kCGImagePropertyIPTCDictionary");
constinit TovString gLatitude = sharedText(u"kCGImagePropertyGPSLatitude");
constinit TovString gLatitudeRef = sharedText(u"kCGImagePropertyGPSLatitudeRef");
constinit TovString gLongitude = sharedText(u"kCGImagePropertyGPSLongitude");
constinit TovString gLongitudeRef = sharedText(u"kCGImagePropertyGPSLongitudeRef");
constinit TovString gAltitude = sharedText(u"kCGImagePropertyGPSAltitude");
constinit TovString gAltitudeRef = sharedText(u"kCGImagePropertyGPSAltitudeRef");
constinit TovString gDestDistance = sharedText(u"kCGImagePropertyGPSDestDistance");
constinit TovString gDestDistanceRef = sharedText(u"kCGImagePropertyGPSDestDistanceRef");
constinit TovString gSatellites = sharedText(u"kCGImagePropertyGPSSatellites");
constinit TovString gImgDirection = sharedText(u"kCGImagePropertyGPSImgDirection");
constinit TovString gCity = sharedText(u"kCGImagePropertyIPTCCity");
constinit TovString gProvinceState = sharedText(u"kCGImagePropertyIPTCProvinceState");
constinit TovString gCountry = sharedText(u"kCGImagePropertyIPTCCountryPrimaryLocationName");
constinit TovString gCaption = sharedText(u"kCGImagePropertyIPTCCaptionAbstract");
}  // namespace

constinit const TovStringRef platform::kCGImagePropertyGPSDictionary = &gGPSDictionary;
constinit const TovStringRef platform::kCGImagePropertyIPTCDictionary = &gIPTCDictionary;
constinit const TovStringRef platform::kCGImagePropertyGPSLatitude = &gLatitude;
constinit const TovStringRef platform::kCGImagePropertyGPSLatitudeRef = &gLatitudeRef;
constinit const TovStringRef platform::kCGImagePropertyGPSLongitude = &gLongitude;
constinit const TovStringRef platform::kCGImagePropertyGPSLongitudeRef = &gLongitudeRef;
constinit const TovStringRef platform::kCGImagePropertyGPSAltitude = &gAltitude;
constinit const TovStringRef platform::kCGImagePropertyGPSAltitudeRef = &gAltitudeRef;
constinit const TovStringRef platform::kCGImagePropertyGPSDestDistance = &gDestDistance;
constinit const TovStringRef platform::kCGImagePropertyGPSDestDistanceRef = &gDestDistanceRef;
constinit const TovStringRef platform::kCGImagePropertyGPSSatellites = &gSatellites;
constinit const TovStringRef platform::kCGImagePropertyGPSImgDirection = &gImgDirection;
constinit const TovStringRef platform::kCGImagePropertyIPTCCity = &gCity;
constinit const TovStringRef platform::kCGImagePropertyIPTCProvinceState = &gProvinceState;
constinit const TovStringRef platform::kCGImagePropertyIPTCCountryPrimaryLocationName = &gCountry;
constinit const TovStringRef platform::kCGImagePropertyIPTCCaptionAbstract = &gCaption;
