#include "globe/fly_to.h"

#include "lib/strings/tov_format.h"

#include <cmath>
#include <utility>

using namespace pinorama;

namespace {
constexpr float kDefaultDistance = 400.0F;  // metres
constexpr float kDefaultTilt = 44.0F;       // degrees
constexpr float kSpeed = 0.6F;

GlobeLink gGlobeLink;

// The rounding comes before the test, so that a distance too small for single precision counts as
// zero.
double roundedOrDefault(double value, float defaultValue)
{
    const auto rounded = static_cast<float>(value);
    return rounded == 0.0F ? defaultValue : rounded;
}

bool isOnTheGlobe(double latitude, double longitude)
{
    return std::abs(latitude) <= 90.0 && std::abs(longitude) <= 180.0;  // false for NaN
}
}  // namespace

GlobeLink gpsSetGlobeLink(GlobeLink link)
{
    return std::exchange(gGlobeLink, std::move(link));
}

std::int32_t gpsFlyGoogleEarthToLocation(double latitude, double longitude, double azimuth,
                                         double tilt, double distance)
{
    const GlobeView view = {
        .latitude = latitude,
        .longitude = longitude,
        .azimuth = azimuth,
        .tilt = roundedOrDefault(tilt, kDefaultTilt),
        .distance = roundedOrDefault(distance, kDefaultDistance),
    };
    const bool isUsable = isOnTheGlobe(latitude, longitude) && std::isfinite(azimuth) &&
                          std::isfinite(view.tilt) && std::isfinite(view.distance);
    if (isUsable && gGlobeLink) gGlobeLink(view);
    return 0;
}

TovStringRef gpsMakeFlyToScript(double latitude, double longitude, double azimuth, double tilt,
                                double distance)
{
    // One blank stands on each side of the first two carriage returns, two on each side of the
    // third.
    return tovFormat(
        u"tell application \"Google Earth\" \r"
        u" activate \r"
        u" SetViewInfo {latitude:%f, longitude:%f, distance:%f, tilt:%f, azimuth:%f} speed %f  \r"
        u"  end tell",
        {latitude, longitude, roundedOrDefault(distance, kDefaultDistance),
         roundedOrDefault(tilt, kDefaultTilt), azimuth, double{kSpeed}});
}
