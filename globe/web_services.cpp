#include "globe/web_services.h"

#include "globe/address_escape.h"
#include "lib/strings/string_holder.h"
#include "lib/strings/tov_format.h"
#include "lib/strings/tov_search.h"
#include "lib/ui/string_tables.h"
#include "location/file_name.h"

#include <string>

namespace {
constexpr char kTable[] = "GPS";
constexpr char16_t kCatalogueAddress[] = u"skallion://find/gps/&lat=%f&long=%f&distance=2000m";

StringHolder keyOf(char16_t letter, std::int32_t number)
{
    std::u16string key(1, letter);
    for (const char digit : std::to_string(number)) key += static_cast<char16_t>(digit);
    return StringHolder(platform::createString(key));
}

double signedLatitude(const fileInfoRecord& info)
{
    return info.refLatti == 'S' ? -info.latti : info.latti;
}

double signedLongitude(const fileInfoRecord& info)
{
    return info.refLongi == 'W' ? -info.longi : info.longi;
}
}  // namespace

TovStringRef appCopyServiceTitle(std::int32_t number)
{
    const StringHolder key = keyOf(u'a', number);
    StringHolder title(iuCopyLocalizedString(key.get(), key.get(), kTable));
    if (!title || TovStringCompare(title.get(), key.get(), 0) == 0) return nullptr;
    return title.take();
}

TovStringRef appCopyServiceTemplate(TovStringRef title)
{
    for (std::int32_t number = 1;; ++number) {
        const StringHolder candidate(appCopyServiceTitle(number));
        if (!candidate) return nullptr;
        if (!platform::equalUnits(candidate.get(), title)) continue;
        const StringHolder key = keyOf(u'b', number);
        return iuCopyLocalizedString(key.get(), key.get(), kTable);
    }
}

TovStringRef appMakeWebServiceURL(TovStringRef urlTemplate, const fileInfoRecord* info,
                                  TovStringRef path)
{
    if (urlTemplate == nullptr || info == nullptr) return nullptr;
    const std::u16string_view format = platform::unitsOf(urlTemplate);
    const double latitude = signedLatitude(*info);
    const double longitude = signedLongitude(*info);
    switch (TovStringCountCharAppearances(urlTemplate, u'%')) {
    case 2: return tovFormat(format, {latitude, longitude});
    case 3: {
        const StringHolder name(gpsCopyFileName(path));
        if (!name) return nullptr;
        const StringHolder escaped(gpsEscapeForAddress(platform::unitsOf(name.get())));
        if (!escaped) return nullptr;
        return tovFormat(format, {latitude, longitude, escaped.get()});
    }
    default: return nullptr;
    }
}

TovStringRef appMakeCatalogueURL(const fileInfoRecord* info)
{
    if (info == nullptr) return nullptr;
    return tovFormat(kCatalogueAddress, {signedLatitude(*info), signedLongitude(*info)});
}
