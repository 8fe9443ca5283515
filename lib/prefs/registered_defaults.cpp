#include "lib/prefs/registered_defaults.h"

#include "lib/prefs/application_preferences.h"

#include <map>

namespace {
std::map<std::u16string, std::u16string, std::less<>> gRegisteredDefaults;
}

void prefRegisterDefault(std::u16string_view key, std::u16string_view value)
{
    gRegisteredDefaults.insert_or_assign(std::u16string(key), std::u16string(value));
}

std::optional<std::u16string> prefValueOrDefault(std::u16string_view key)
{
    if (const auto stored = prefApplicationFile().load(key)) {
        if (auto text = prefTextOf(*stored)) return text;
    }
    const auto registered = gRegisteredDefaults.find(key);
    if (registered == gRegisteredDefaults.end()) return std::nullopt;
    return registered->second;
}
