#include "lib/prefs/application_preferences.h"

#include "base/item_path.h"
#include "base/user_folders.h"
#include "lib/files/path_text.h"
#include "lib/objects/object_holder.h"
#include "lib/ui/application_bundle.h"
#include "lib/ui/string_tables.h"

#include <string>

using namespace pinorama;

pinorama::PreferenceFile prefApplicationFile()
{
    ObjectHolder<TovStringRef> identifier(iuCopyMainBundleIdentifier());
    if (!identifier) {
        identifier = ObjectHolder<TovStringRef>(createString(kApplicationIdentifier));
    }
    const std::string config = configFolder();
    if (config.empty()) return PreferenceFile("");
    // An identifier that cannot be a folder's name gives no path, and so no file.
    return PreferenceFile(childPath(config, pathBytes(identifier.get())));
}

std::optional<std::u16string> prefTextOf(const pinorama::PreferenceValue& value)
{
    if (const auto* text = std::get_if<std::u16string>(&value)) return *text;
    const auto* number = std::get_if<std::int32_t>(&value);
    if (number == nullptr) return std::nullopt;
    const std::string digits = std::to_string(*number);
    return std::u16string(digits.begin(), digits.end());
}
