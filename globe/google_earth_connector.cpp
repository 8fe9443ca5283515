#include "globe/google_earth_connector.h"

#include "base/memory_guard.h"
#include "base/utf8.h"
#include "globe/kml_document.h"
#include "lib/strings/string_holder.h"
#include "lib/strings/tov_file.h"
#include "lib/strings/tov_search.h"
#include "lib/text/byte_texts.h"

using namespace pinorama;

namespace {
constexpr std::uint16_t kEncodingUTF8 = 12;

// A file name may hold bytes that are no UTF-8. A document with one of them would have no byte form
// at all, and nothing would be written.
TovStringRef copyWritable(TovStringRef name)
{
    if (name == nullptr) return nullptr;
    return baseGuardMemory([name] { return createStringFromUTF8(displayUTF8(unitsOf(name))); });
}
}  // namespace

std::int32_t GoogleEarthConnector::exportToKML(TovStringRef path, const fileInfoRecord* gpsInfo,
                                               TovStringRef name)
{
    const StringHolder writable(copyWritable(name));
    if (name != nullptr && !writable) return 0;
    const StringHolder document(gpsMakeKMLDocument(gpsInfo, writable.get()));
    if (document && TovStringIsValid(path)) {
        (void)TovStringWriteToFile(document.get(), path, kEncodingUTF8);  // reports nothing
    }
    return 0;
}

TovStringRef appMakeKMLFileName(TovStringRef pictureName)
{
    const StringHolder stem(TovStringStripExtension(pictureName));
    StringHolder name(TovStringGetCopy(stem.get()));
    return appendUnits(name.get(), u".kml") ? name.take() : nullptr;
}
