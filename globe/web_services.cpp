#include "globe/web_services.h"

#include "globe/address_escape.h"
#include "lib/strings/string_holder.h"
#include "lib/strings/tov_format.h"
#include "lib/strings/tov_search.h"
#include "lib/ui/string_tables.h"
#include "location/file_name.h"

using namespace pinorama;

namespace {
constexpr char kTable[] = "GPS";
constexpr char16_t kCatalogueAddress[] = u"skallion://find/gps/&lat=%f&long=%f&distance=2000m";

StringHolder keyOf(char letter, std::int32_t number)
{
    return StringHolder(tovFormat(u"%c%li", {letter, number}));
}

// The text of an entry; its key when the table has none.
TovStringRef copyEntry(TovStringRef key)
{
    return iuCopyLocalizedString(key, key, kTable);
}

// True for a title that is its own key, in upper or lower case: there is no such service.
bool isMissing(TovStringRef title, TovStringRef key)
{
    return title == nullptr || TovStringCompare(title, key, 0) == 0;
}

using Escape = TovStringRef (*)(std::u16string_view name);

TovStringRef fillIn(TovStringRef urlTemplate, const fileInfoRecord* info, TovStringRef path,
                    Escape escape)
{
    if (urlTemplate == nullptr || info == nullptr) return nullptr;
    const std::u16string_view format = unitsOf(urlTemplate);
    const double latitude = signedLatitude(*info);
    const double longitude = signedLongitude(*info);
    switch (TovStringCountCharAppearances(urlTemplate, u'%')) {
    case 2: return tovFormat(format, {latitude, longitude});
    case 3: {
        const StringHolder name(gpsCopyFileName(path));
        if (!name) return nullptr;
        const StringHolder escaped(escape(unitsOf(name.get())));
        if (!escaped) return nullptr;
        return tovFormat(format, {latitude, longitude, escaped.get()});
    }
    default: return nullptr;
    }
}
}  // namespace

TovStringRef appCopyServiceTitle(std::int32_t number)
{
    const StringHolder key = keyOf('a', number);
    StringHolder title(copyEntry(key.get()));
    return isMissing(title.get(), key.get()) ? nullptr : title.take();
}

TovStringRef appCopyServiceTemplate(TovStringRef title)
{
    if (title == nullptr) return nullptr;
    for (std::int32_t number = 1;; ++number) {
        const StringHolder key = keyOf('a', number);
        const StringHolder candidate(copyEntry(key.get()));
        // A title is looked for as it is written, also one that ends the list of the menu.
        if (equalUnits(candidate.get(), title)) {
            return copyEntry(keyOf('b', number).get());
        }
        if (isMissing(candidate.get(), key.get())) return nullptr;
    }
}

TovStringRef appMakeWebServiceURL(TovStringRef urlTemplate, const fileInfoRecord* info,
                                  TovStringRef path)
{
    return fillIn(urlTemplate, info, path, gpsEscapeForAddress);
}

TovStringRef appMakeSafeWebServiceURL(TovStringRef urlTemplate, const fileInfoRecord* info,
                                      TovStringRef path)
{
    return fillIn(urlTemplate, info, path, gpsEscapeForAddressValue);
}

TovStringRef appMakeCatalogueURL(const fileInfoRecord* info)
{
    if (info == nullptr) return nullptr;
    return tovFormat(kCatalogueAddress, {signedLatitude(*info), signedLongitude(*info)});
}
