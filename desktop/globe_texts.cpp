#include "desktop/globe_texts.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <numbers>
#include <sstream>
#include <string_view>

namespace pinorama {
namespace {
// Six decimals of a degree are a tenth of a metre on the ground.
std::string number(double value)
{
    char digits[400];
    const auto end =
        std::to_chars(std::begin(digits), std::end(digits), value, std::chars_format::fixed, 6);
    return {digits, end.ptr};
}

std::string lookAt(const GlobeView& view)
{
    return "<LookAt><longitude>" + number(view.longitude) + "</longitude><latitude>" +
           number(view.latitude) + "</latitude><altitude>0</altitude><heading>" +
           number(view.azimuth) + "</heading><tilt>" + number(std::clamp(view.tilt, 0.0, 90.0)) +
           "</tilt><range>" + number(view.distance) +
           "</range><altitudeMode>relativeToGround</altitudeMode></LookAt>";
}

std::string document(const std::string& content)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<kml xmlns=\"http://www.opengis.net/kml/2.2\"><Document>" +
           content + "</Document></kml>\n";
}

// The corners of a square around the place, with as much on each side as the view is away from it.
// It ends at the poles and at the 180th meridian.
std::string cornersAround(const GlobeView& view)
{
    constexpr double kMetresPerDegree = 111320.0;
    const double height = std::clamp(view.distance, 100.0, 1e6) / kMetresPerDegree;
    const double shrinking = std::cos(view.latitude * std::numbers::pi / 180.0);
    const double width = height / std::max(shrinking, 0.01);
    const std::string south = number(std::max(view.latitude - height, -90.0));
    const std::string north = number(std::min(view.latitude + height, 90.0));
    const std::string west = number(std::max(view.longitude - width, -180.0));
    const std::string east = number(std::min(view.longitude + width, 180.0));
    const std::string first = west + "," + south;
    return first + " " + east + "," + south + " " + east + "," + north + " " + west + "," + north +
           " " + first;
}

// What has no extent GNOME Maps 43 marks, but does not go to. So there is a second placemark: a
// hole in nothing, which no program draws and which those that look for tracks pass over.
std::string surroundings(const GlobeView& view)
{
    return "<Placemark><Style><LineStyle><color>00ffffff</color></LineStyle><PolyStyle><fill>0"
           "</fill><outline>0</outline></PolyStyle></Style><Polygon><innerBoundaryIs><LinearRing>"
           "<coordinates>" +
           cornersAround(view) +
           "</coordinates></LinearRing></innerBoundaryIs></Polygon></Placemark>";
}

std::string_view trimmed(std::string_view text)
{
    constexpr std::string_view kBlanks = " \t\r\"";
    const std::size_t start = text.find_first_not_of(kBlanks);
    if (start == std::string_view::npos) return {};
    return text.substr(start, text.find_last_not_of(kBlanks) - start + 1);
}
}  // namespace

std::string makeLookAtDocument(const GlobeView& view)
{
    return document(lookAt(view));
}

std::string makePlacemarkDocument(const GlobeView& view)
{
    const std::string latitude = number(view.latitude);
    const std::string longitude = number(view.longitude);
    return document(lookAt(view) + "<Placemark><name>" + latitude + ", " + longitude +
                    "</name><Point><coordinates>" + longitude + "," + latitude +
                    "</coordinates></Point></Placemark>" + surroundings(view));
}

std::string makeFlyToQuery(const GlobeView& view)
{
    return "flytoview=" + lookAt(view) + "\n";
}

std::string queryFileOfDriverSettings(const std::string& driverSettings)
{
    std::istringstream lines(driverSettings);
    for (std::string line; std::getline(lines, line);) {
        const std::string_view setting = trimmed(line);
        const std::size_t equals = setting.find('=');
        if (setting.starts_with(';') || equals == std::string_view::npos) continue;
        if (trimmed(setting.substr(0, equals)) == "ViewSync/queryFile") {
            return std::string(trimmed(setting.substr(equals + 1)));
        }
    }
    return {};
}

int marbleZoom(double distance)
{
    // Marble's globe has this radius (metres); its camera has a field of view of 110 degrees.
    constexpr double kGlobeRadius = 6378137.0;
    const double kilometres = std::max(distance, 1.0) / 1000.0;
    const double halfView = 55.0 * std::numbers::pi / 180.0;
    return static_cast<int>(
        std::lround(200.0 * std::log(kGlobeRadius * 0.4 / (kilometres * std::tan(halfView)))));
}

}  // namespace pinorama
