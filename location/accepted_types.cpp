#include "location/accepted_types.h"

#include "lib/objects/shared_text.h"
#include "lib/strings/string_holder.h"
#include "lib/strings/tov_search.h"
#include "location/file_name.h"

namespace {
constexpr std::uint8_t kIgnoreCase = 0;

// The mixed case is harmless, because the comparison ignores case.
constinit TovString gAcceptedExtensions[] = {
    platform::sharedText(u"JPG"), platform::sharedText(u"jpeg"), platform::sharedText(u"NEF"),
    platform::sharedText(u"fff"), platform::sharedText(u"nrw"),  platform::sharedText(u"raf"),
    platform::sharedText(u"orf"), platform::sharedText(u"dng"),  platform::sharedText(u"mrw"),
    platform::sharedText(u"crw"), platform::sharedText(u"cr2"),  platform::sharedText(u"kdc"),
    platform::sharedText(u"dcr"), platform::sharedText(u"ptx"),  platform::sharedText(u"pef"),
    platform::sharedText(u"arw"), platform::sharedText(u"srf"),  platform::sharedText(u"sr2"),
    platform::sharedText(u"mos"), platform::sharedText(u"raw"),
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
