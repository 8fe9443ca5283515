#include "lib/prefs/preference_file.h"

#include "base/file_lock.h"
#include "base/item_path.h"
#include "base/moving.h"
#include "base/replacing_file.h"
#include "base/user_folders.h"
#include "base/utf8.h"
#include "base/whole_file.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cmath>

using namespace pinorama;

using nlohmann::json;

namespace {
constexpr std::size_t kMaxFileSize = 4 * 1024 * 1024;  // bytes
constexpr int kMaxDepth = 64;                          // objects and lists within each other
constexpr int kMaxSetAside = 1000;                     // damaged files that are kept
constexpr std::chrono::milliseconds kPatience(2000);

enum class FileState { missing, good, damaged, unreadable };

struct Content {
    FileState state;
    json values;  // an object; empty unless the file is good
};

// Parses the text of a file; a discarded value for what is no JSON or nested without end.
json parse(const std::string& text)
{
    int deepest = 0;
    const auto watchDepth = [&](int depth, json::parse_event_t, json&) {
        deepest = std::max(deepest, depth);
        return depth <= kMaxDepth;
    };
    json values = json::parse(text, watchDepth, false);
    return deepest <= kMaxDepth ? values : json(json::value_t::discarded);
}

Content readContent(const std::string& path)
{
    const auto text = readWholeFile(path, kMaxFileSize);
    if (!text) {
        if (errno == ENOENT) return {FileState::missing, json::object()};
        return {errno == EFBIG ? FileState::damaged : FileState::unreadable, json::object()};
    }
    json values = parse(*text);
    if (!values.is_object()) return {FileState::damaged, json::object()};
    return {FileState::good, std::move(values)};
}

// Gives the damaged file another name: the first of preferences.json.damaged, .damaged.2, ... that
// is free.
bool setAside(const std::string& path)
{
    for (int number = 1; number <= kMaxSetAside; number++) {
        std::string name = path + ".damaged";
        if (number > 1) name += "." + std::to_string(number);
        if (moveWithoutReplacing(path, name)) return true;
        if (errno != EEXIST) return false;
    }
    return false;
}

std::u16string unitsOfUTF8(const std::string& text)
{
    const std::int32_t count = countUnitsOfUTF8(text);
    if (count < 0) return {};
    std::u16string units(static_cast<std::size_t>(count), u'\0');
    units.resize(decodeUTF8(text, units));
    return units;
}

std::int32_t lowHalf(std::int64_t number)
{
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(number));
}

pinorama::PreferenceValue valueOf(const json& value)
{
    if (value.is_string()) return unitsOfUTF8(value.get_ref<const std::string&>());
    if (value.is_number_integer()) return lowHalf(value.get<std::int64_t>());
    if (value.is_number_float()) {
        const double whole = std::trunc(value.get<double>());
        constexpr double kTwoTo63 = 9223372036854775808.0;
        if (whole >= -kTwoTo63 && whole < kTwoTo63) {
            return lowHalf(static_cast<std::int64_t>(whole));
        }
    }
    return ForeignPreference();
}

// Sets or removes a key. False if nothing changes.
bool change(json* values, const std::string& key, const std::optional<PreferenceValue>& value)
{
    json changed;
    if (value && std::holds_alternative<std::u16string>(*value)) {
        changed = displayUTF8(std::get<std::u16string>(*value));
    } else if (value && std::holds_alternative<std::int32_t>(*value)) {
        changed = std::get<std::int32_t>(*value);
    } else {
        return values->erase(key) != 0;
    }
    json& place = (*values)[key];
    if (place == changed) return false;
    place = std::move(changed);
    return true;
}

// Whoever keeps the preferences elsewhere, behind a link, keeps them there.
bool replace(const std::string& path, const std::string& content)
{
    const std::string existing = resolvedPath(path.c_str());
    ReplacingFile file(
        {.durability = Durability::contentAndName, .ownMode = 0600, .takesTurns = true});
    return file.begin(existing.empty() ? path : existing) && file.write(content) && file.finish();
}
}  // namespace

std::string pinorama::PreferenceFile::path() const
{
    return folder_ + "/preferences.json";
}

std::optional<pinorama::PreferenceValue> pinorama::PreferenceFile::load(
    std::u16string_view key) const
{
    if (folder_.empty()) return std::nullopt;
    const Content content = readContent(path());
    const auto found = content.values.find(displayUTF8(key));
    if (found == content.values.end()) return std::nullopt;
    return valueOf(*found);
}

bool pinorama::PreferenceFile::store(std::u16string_view key,
                                     const std::optional<PreferenceValue>& value) const
{
    if (folder_.empty() || !makeFolders(folder_, 0700)) return false;
    const FileLock turn(folder_ + "/preferences.lock", kPatience);
    if (!turn) return false;

    Content content = readContent(path());
    if (content.state == FileState::unreadable) return false;
    if (content.state == FileState::damaged && !setAside(path())) return false;
    if (!change(&content.values, displayUTF8(key), value)) return true;
    return replace(path(), content.values.dump(4) + "\n");
}
