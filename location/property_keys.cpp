#include "location/property_keys.h"

#include "lib/objects/shared_text.h"

using namespace pinorama;

namespace {
using pinorama::sharedText;

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

constinit const TovStringRef pinorama::kCGImagePropertyGPSDictionary = &gGPSDictionary;
constinit const TovStringRef pinorama::kCGImagePropertyIPTCDictionary = &gIPTCDictionary;
constinit const TovStringRef pinorama::kCGImagePropertyGPSLatitude = &gLatitude;
constinit const TovStringRef pinorama::kCGImagePropertyGPSLatitudeRef = &gLatitudeRef;
constinit const TovStringRef pinorama::kCGImagePropertyGPSLongitude = &gLongitude;
constinit const TovStringRef pinorama::kCGImagePropertyGPSLongitudeRef = &gLongitudeRef;
constinit const TovStringRef pinorama::kCGImagePropertyGPSAltitude = &gAltitude;
constinit const TovStringRef pinorama::kCGImagePropertyGPSAltitudeRef = &gAltitudeRef;
constinit const TovStringRef pinorama::kCGImagePropertyGPSDestDistance = &gDestDistance;
constinit const TovStringRef pinorama::kCGImagePropertyGPSDestDistanceRef = &gDestDistanceRef;
constinit const TovStringRef pinorama::kCGImagePropertyGPSSatellites = &gSatellites;
constinit const TovStringRef pinorama::kCGImagePropertyGPSImgDirection = &gImgDirection;
constinit const TovStringRef pinorama::kCGImagePropertyIPTCCity = &gCity;
constinit const TovStringRef pinorama::kCGImagePropertyIPTCProvinceState = &gProvinceState;
constinit const TovStringRef pinorama::kCGImagePropertyIPTCCountryPrimaryLocationName = &gCountry;
constinit const TovStringRef pinorama::kCGImagePropertyIPTCCaptionAbstract = &gCaption;
