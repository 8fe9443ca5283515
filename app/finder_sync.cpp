#include "app/finder_sync.h"

#include "lib/prefs/preferences.h"
#include "lib/prefs/registered_defaults.h"
#include "lib/strings/string_holder.h"

#include <algorithm>
#include <optional>

namespace pinorama {
namespace {
constexpr std::u16string_view kKey = u"finderSync";

bool isYes(std::u16string_view text)
{
    text.remove_prefix(std::min(text.find_first_not_of(u" \t\n"), text.size()));
    if (text.starts_with(u'+') || text.starts_with(u'-')) text.remove_prefix(1);
    text.remove_prefix(std::min(text.find_first_not_of(u'0'), text.size()));
    return !text.empty() &&
           std::u16string_view(u"123456789YyTt").find(text.front()) != std::u16string_view::npos;
}
}  // namespace

void appRegisterFinderSyncDefault()
{
    prefRegisterDefault(kKey, u"1");
}

bool appLoadFinderSync()
{
    return isYes(prefValueOrDefault(kKey).value_or(u""));
}

void appStoreFinderSync(bool isOn)
{
    const StringHolder value(createString(isOn ? u"1" : u"0"));
    prefStoreString(createString(kKey), value.get());  // consumes the key
}

}  // namespace pinorama
