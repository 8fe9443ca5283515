#include "location/accepted_types.h"

#include "base/utf8.h"
#include "lib/objects/shared_text.h"
#include "lib/strings/string_holder.h"
#include "lib/strings/tov_search.h"
#include "location/file_name.h"

#include <cstdint>
#include <span>
#include <string>
#include <utility>
#include <vector>

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

void appendInLowerCase(std::span<const TovString> extensions, std::vector<std::string>* out)
{
    for (const TovString& extension : extensions) {
        std::string text = displayUTF8(unitsOf(&extension));
        for (char& letter : text) {
            if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
        }
        out->push_back(std::move(text));
    }
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

std::vector<std::string> pinorama::acceptedExtensions(bool alsoMore)
{
    std::vector<std::string> extensions;
    appendInLowerCase(gAcceptedExtensions, &extensions);
    if (!alsoMore) return extensions;
    appendInLowerCase(gMoreExtensions, &extensions);
    appendInLowerCase(gVideoExtensions, &extensions);
    return extensions;
}
