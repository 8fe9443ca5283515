#include "globe/kml_document.h"

#include "lib/strings/string_holder.h"
#include "lib/strings/tov_format.h"

using namespace pinorama;

namespace {
// The icon is 64 pixels wide; the server's port is written out.
#define KML_CAMERA_ICON "<href>http://maps.google.com:80/flatfile?lf-0-icons/camera_64_n.png</href>"

constexpr const char* kDocumentStart =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>"
    "<kml xmlns=\"http://earth.google.com/kml/2.1\">"
    "<Document>";

constexpr const char* kStyles =
    "<StyleMap id=\"22370\">"
    "<Pair><key>normal</key><styleUrl>#sn_icon64</styleUrl></Pair>"
    "<Pair><key>highlight</key><styleUrl>#sh_icon64</styleUrl></Pair>"
    "</StyleMap>"
    "<Style id=\"sn_icon64\">"
    "<IconStyle><scale>0.7</scale><Icon>" KML_CAMERA_ICON
    "</Icon></IconStyle>"
    "<ListStyle></ListStyle>"
    "<BalloonStyle><text>$[description]</text></BalloonStyle>"
    "<LineStyle><antialias>0</antialias></LineStyle>"
    "<PolyStyle><fill>0</fill><outline>0</outline></PolyStyle>"
    "</Style>"
    "<Style id=\"sh_icon64\">"
    "<IconStyle><scale>0.9</scale><Icon>" KML_CAMERA_ICON
    "</Icon></IconStyle>"
    "<LabelStyle><scale>1.1</scale></LabelStyle>"
    "<ListStyle></ListStyle>"
    "</Style>";

#undef KML_CAMERA_ICON

// Single precision comes first and the sign second, so that 0 in the south prints as -0.000000.
double signedSinglePrecision(double magnitude, char reference, char negativeReference)
{
    const auto rounded = static_cast<float>(magnitude);
    return reference == negativeReference ? -rounded : rounded;
}

void appendElement(TovStringRef* document, const char* openTag, TovStringRef text,
                   const char* closeTag)
{
    TovStringAppendCString(document, openTag);
    TovStringAppendTovString(document, text);
    TovStringAppendCString(document, closeTag);
}

void appendCoordinates(TovStringRef* document, const fileInfoRecord& info)
{
    tovAppendFormat(document, u"<coordinates>%f,%f,0</coordinates>",
                    {signedSinglePrecision(info.longi, info.refLongi, 'W'),
                     signedSinglePrecision(info.latti, info.refLatti, 'S')});
}
// Makes room for a document with one placemark, so that no piece of it can be missing for lack of
// memory.
bool reserveRoom(TovStringRef document, TovStringRef name)
{
    constexpr std::int64_t kOtherPieces = 1024;  // units, the two numbers included
    const std::int64_t units = TovStringGetCLength(kDocumentStart) + TovStringGetCLength(kStyles) +
                               std::int64_t{TovStringGetLength(name)} * 3 + kOtherPieces;
    return units <= kMaxStringLength && reserveUnits(document, static_cast<std::int32_t>(units));
}
}  // namespace

TovStringRef gpsMakeKMLDocument(const fileInfoRecord* info, TovStringRef name)
{
    if (info == nullptr) return nullptr;
    StringHolder document(TovStringCreateMutable());
    if (!document || !reserveRoom(document.get(), name)) return nullptr;

    gpsInsertKmlHeader(document.slot(), name);
    gpsInsertKmlPlacemark(document.slot(), *info, name);
    gpsInsertKmlFooter(document.slot());
    return document.take();
}

void gpsInsertKmlHeader(TovStringRef* document, TovStringRef name)
{
    TovStringAppendCString(document, kDocumentStart);
    if (TovStringIsValid(name)) {
        appendElement(document, "<name>", name, "</name>");
    } else {
        TovStringAppendCString(document, "<name>Pinorama Export.kml</name>");
    }
    TovStringAppendCString(document, kStyles);
}

void gpsInsertKmlPlacemark(TovStringRef* document, const fileInfoRecord& info, TovStringRef name)
{
    TovStringAppendCString(document, "<Placemark>");
    appendElement(document, "<name>", name, "</name>");
    TovStringAppendCString(document, "<open>1</open>");
    appendElement(document, "<description>", name, "</description>");
    TovStringAppendCString(document, "<styleUrl>#22370</styleUrl><Point>");
    appendCoordinates(document, info);
    TovStringAppendCString(document, "</Point></Placemark>");
}

void gpsInsertKmlFooter(TovStringRef* document)
{
    TovStringAppendCString(document, "</Document></kml>");
}
