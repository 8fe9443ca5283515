#include "lib/prefs/preferences.h"

#include "base/status.h"
#include "lib/prefs/application_preferences.h"
#include "lib/strings/string_holder.h"
#include "lib/strings/tov_string.h"

#include <string>

using namespace pinorama;

namespace {
// The value of a key; nothing for a null key.
std::optional<pinorama::PreferenceValue> load(const StringHolder& key)
{
    if (!key) return std::nullopt;
    return prefApplicationFile().load(unitsOf(key.get()));
}

void store(const StringHolder& key, const std::optional<pinorama::PreferenceValue>& value)
{
    if (!key) return;
    // Callers are not told of failures.
    (void)prefApplicationFile().store(unitsOf(key.get()), value);
}

std::int32_t leadingInteger(std::u16string_view text)
{
    const StringHolder string(createString(text));
    return TovStringGetIntValue(string.get());
}
}  // namespace

std::int32_t prefStoreString(TovStringRef key, TovStringRef value)
{
    const StringHolder ownKey(key);
    std::optional<PreferenceValue> stored;
    if (value != nullptr) stored = std::u16string(unitsOf(value));
    store(ownKey, stored);
    return kErrNone;
}

std::int32_t prefLoadString(TovStringRef key, TovStringRef* out)
{
    const StringHolder ownKey(key);
    const auto stored = load(ownKey);
    const auto text = stored ? prefTextOf(*stored) : std::nullopt;
    StringHolder loaded(text ? createString(*text) : nullptr);
    if (loaded) *out = loaded.take();
    return kErrNone;
}

std::int32_t prefStoreUInt32(TovStringRef key, std::uint32_t value)
{
    const StringHolder ownKey(key);
    store(ownKey, static_cast<std::int32_t>(value));
    return kErrNone;
}

std::int32_t prefLoadUInt32(TovStringRef key, std::uint32_t* out)
{
    const StringHolder ownKey(key);
    const auto stored = load(ownKey);
    if (!stored) return kErrNothingUsable;
    if (const auto* number = std::get_if<std::int32_t>(&*stored)) {
        *out = static_cast<std::uint32_t>(*number);
        return kErrNone;
    }
    if (const auto* text = std::get_if<std::u16string>(&*stored)) {
        *out = static_cast<std::uint32_t>(leadingInteger(*text));
        return kErrNone;
    }
    return kErrNothingUsable;
}
