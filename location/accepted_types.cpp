#include "location/accepted_types.h"

#include "lib/objects/shared_text.h"
#include "lib/strings/string_holder.h"
#include "lib/strings/tov_search.h"
#include "location/file_name.h"

using namespace pinorama;

namespace {
constexpr std::uint8_t kIgnoreCase = 0;

// The mixed case is harmless, because the comparison ignores case.
constinit TovString gAcceptedExtensions[] = {
    sharedText(u"JPG"), sharedText(u"jpeg"), sharedText(u"NEF"), sharedText(u"fff"),
    sharedText(u"nrw"), sharedText(u"raf"),  sharedText(u"orf"), sharedText(u"dng"),
    sharedText(u"mrw"), sharedText(u"crw"),  sharedText(u"cr2"), sharedText(u"kdc"),
    sharedText(u"dcr"), sharedText(u"ptx"),  sharedText(u"pef"), sharedText(u"arw"),
    sharedText(u"srf"), sharedText(u"sr2"),  sharedText(u"mos"), sharedText(u"raw"),
};
}  // namespace

bool gpsIsAcceptedPath(TovStringRef path)
{
    const StringHolder name(gpsCopyFileName(path));
    const StringHolder extension(TovStringGetExtension(name.get()));
    if (!extension) return false;
    for (TovString& accepted : gAcceptedExtensions) {
        if (TovStringCompare(&accepted, extension.get(), kIgnoreCase) == 0) return true;
    }
    return false;
}
