#include "location/accepted_types.h"

#include "lib/objects/shared_text.h"
#include "lib/strings/string_holder.h"
#include "lib/strings/tov_search.h"
#include "location/file_name.h"

#include <span>

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

// Read only where somebody asks for it.
constinit TovString gMoreExtensions[] = {
    sharedText(u"heic"), sharedText(u"heif"), sharedText(u"hif"),  sharedText(u"avif"),
    sharedText(u"cr3"),  sharedText(u"jxl"),  sharedText(u"rw2"),  sharedText(u"srw"),
    sharedText(u"3fr"),  sharedText(u"iiq"),  sharedText(u"erf"),  sharedText(u"gpr"),
    sharedText(u"x3f"),  sharedText(u"tif"),  sharedText(u"tiff"), sharedText(u"png"),
    sharedText(u"webp"), sharedText(u"gif"),  sharedText(u"psd"),  sharedText(u"jpe"),
    sharedText(u"jfif"), sharedText(u"mpo"),
};
constinit TovString gVideoExtensions[] = {sharedText(u"mov"), sharedText(u"mp4")};

bool hasExtension(TovStringRef path, std::span<TovString> extensions)
{
    const StringHolder name(gpsCopyFileName(path));
    const StringHolder extension(TovStringGetExtension(name.get()));
    if (!extension) return false;
    for (TovString& known : extensions) {
        if (TovStringCompare(&known, extension.get(), kIgnoreCase) == 0) return true;
    }
    return false;
}
}  // namespace

bool gpsIsAcceptedPath(TovStringRef path)
{
    return hasExtension(path, gAcceptedExtensions);
}

bool pinorama::isPathOfMoreKinds(TovStringRef path)
{
    return hasExtension(path, gMoreExtensions) || hasExtension(path, gVideoExtensions);
}

bool pinorama::isPathOfVideo(TovStringRef path)
{
    return hasExtension(path, gVideoExtensions);
}
