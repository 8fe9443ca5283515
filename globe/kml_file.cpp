#include "globe/kml_file.h"

#include "base/utf8.h"
#include "globe/google_earth_connector.h"
#include "globe/kml_document.h"
#include "globe/xml_escape.h"
#include "lib/files/path_text.h"
#include "lib/strings/string_holder.h"

#include <cerrno>

using namespace pinorama;

namespace {
// A picture without a name is another thing than one whose name is empty.
TovStringRef copyForXML(TovStringRef name)
{
    return TovStringIsValid(name) ? gpsEscapeForXML(unitsOf(name)) : nullptr;
}
}  // namespace

bool gpsSaveKML(const std::string& path, const fileInfoRecord& info, TovStringRef pictureName,
                FullPipe fullPipe)
{
    const StringHolder name(copyForXML(pictureName));
    const StringHolder document(gpsMakeKMLDocument(&info, name.get()));
    const std::string bytes = displayUTF8(unitsOf(document.get()));
    if (!document || bytes.empty() || (TovStringIsValid(pictureName) && !name)) {
        errno = ENOMEM;
        return false;
    }

    ReplacingFile file({.fullPipe = fullPipe});
    if (!file.begin(path)) return false;
    if (!file.unfinishedPath().empty()) {
        const StringHolder unfinished(createPathText(file.unfinishedPath()));
        GoogleEarthConnector::exportToKML(unfinished.get(), &info, name.get());
    }
    // The export reports nothing. Writing what it could not write shows why.
    return (file.contentIs(bytes) || file.write(bytes)) && file.finish();
}
