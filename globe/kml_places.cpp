#include "globe/kml_places.h"

#include "base/number_text.h"
#include "globe/xml_escape.h"

#include <cmath>

namespace pinorama {
namespace {
constexpr double kEyeHeight = 2.0;    // metres
constexpr double kCameraTilt = 85.0;  // degrees from straight down; a little below the horizon

void appendText(std::string_view tag, std::string_view text, std::string* out)
{
    out->append("<").append(tag).append(">");
    appendXmlText(text, out);
    out->append("</").append(tag).append(">");
}

void appendNumber(std::string_view tag, double number, std::string* out)
{
    out->append("<").append(tag).append(">");
    appendDecimal(number, out);
    out->append("</").append(tag).append(">");
}

// KML takes degrees up to 360 only; files can contain any number.
double within360(double degrees)
{
    const double rest = std::fmod(degrees, 360.0);
    return rest < 0.0 ? rest + 360.0 : rest;
}

void appendView(const KmlPlace& place, std::string* out)
{
    const bool isCamera = place.heading.has_value();
    *out += isCamera ? "<Camera>" : "<LookAt>";
    appendNumber("longitude", place.longitude, out);
    appendNumber("latitude", place.latitude, out);
    appendNumber("altitude", isCamera ? kEyeHeight : 0.0, out);
    appendNumber("heading", within360(place.heading.value_or(0.0)), out);
    if (isCamera) {
        appendNumber("tilt", kCameraTilt, out);
    } else {
        appendNumber("tilt", std::isfinite(place.tilt) ? within360(place.tilt) : 0.0, out);
        appendNumber("range", std::isfinite(place.distance) ? place.distance : 1000.0, out);
    }
    appendText("altitudeMode", "relativeToGround", out);
    *out += isCamera ? "</Camera>" : "</LookAt>";
}

// A description is HTML, which stands as text in XML.
std::string descriptionOf(const KmlPlace& place)
{
    std::string html;
    if (!place.thumbnail.empty()) {
        html += "<img src=\"";
        appendXmlText(place.thumbnail, &html);
        html += "\"/><br/>";
    }
    appendXmlText(place.caption, &html);
    return html;
}

void appendData(std::string_view name, std::string_view value, std::string* out)
{
    out->append("<Data name=\"").append(name).append("\">");
    appendText("value", value, out);
    *out += "</Data>";
}
}  // namespace

// The style stands inside a style map. Marble hides the placemarks of a style whose icon it cannot
// load, which is any icon of the web without a network; it passes over styles inside of maps and
// draws the placemarks its own way.
void appendKmlBeginning(std::string* out)
{
    constexpr std::string_view kStyle =
        "<Style><IconStyle><scale>0.7</scale><Icon>"
        "<href>http://maps.google.com/mapfiles/kml/shapes/camera.png</href>"
        "</Icon></IconStyle><LabelStyle><scale>0.7</scale></LabelStyle>"
        "<BalloonStyle><text>$[name]&lt;br/&gt;$[description]</text></BalloonStyle></Style>";
    *out +=
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<kml xmlns=\"http://www.opengis.net/kml/2.2\">\n"
        "<Document><name>Pictures</name>\n"
        "<StyleMap id=\"picture\">";
    for (const std::string_view key : {"normal", "highlight"}) {
        *out += "<Pair>";
        appendText("key", key, out);
        out->append(kStyle).append("</Pair>");
    }
    *out += "</StyleMap>\n";
}

void appendKmlPlace(const KmlPlace& place, std::string* out)
{
    *out += "<Placemark>";
    appendText("name", place.name, out);
    const std::string description = descriptionOf(place);
    if (!description.empty()) appendText("description", description, out);
    appendView(place, out);
    if (!place.taken.empty()) {
        *out += "<TimeStamp>";
        appendText("when", place.taken, out);
        *out += "</TimeStamp>";
    }
    *out += "<styleUrl>#picture</styleUrl><ExtendedData>";
    appendData("path", place.path, out);
    if (place.heading) {
        std::string number;
        appendDecimal(*place.heading, &number);
        appendData("direction", number, out);
    }
    *out += "</ExtendedData><Point>";
    if (place.altitude) appendText("altitudeMode", "absolute", out);
    *out += "<coordinates>";
    appendDecimal(place.longitude, out);
    *out += ',';
    appendDecimal(place.latitude, out);
    if (place.altitude) {
        *out += ',';
        appendDecimal(*place.altitude, out);
    }
    *out += "</coordinates></Point></Placemark>\n";
}

void appendKmlEnd(std::string* out)
{
    *out += "</Document>\n</kml>\n";
}

}  // namespace pinorama
