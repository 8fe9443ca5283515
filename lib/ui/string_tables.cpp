#include "lib/ui/string_tables.h"

#include "base/memory_guard.h"
#include "base/printable.h"
#include "base/whole_file.h"
#include "lib/text/locale.h"
#include "lib/ui/strings_table.h"

#include <cerrno>  // program_invocation_short_name
#include <cstdio>
#include <cstdlib>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

using namespace pinorama;

void* gCFBundleRef = nullptr;

namespace {
constexpr std::size_t kMaxTableSize = 256 * 1024;  // bytes
constexpr char kDefaultTable[] = "Localizable";

struct LoadedTable {
    std::string language;
    std::string name;
    StringsTable texts;  // empty when the language has no such file
};

struct Bundle {
    std::u16string identifier;
    std::string folder;
    std::deque<LoadedTable> tables;
};

// Tables of the user's own have no language.
struct UserTables {
    std::string folder;
    std::deque<LoadedTable> tables;
};

UserTables gUserTables;
std::vector<std::unique_ptr<Bundle>> gBundles;
Bundle* gMainBundle = nullptr;

Bundle* findBundle(std::u16string_view identifier)
{
    for (const auto& bundle : gBundles) {
        if (bundle->identifier == identifier) return bundle.get();
    }
    return nullptr;
}

// The user's languages. The list is made again only when the environment has changed.
const std::vector<std::string>& currentLanguages()
{
    static std::string seenEnvironment;
    static std::vector<std::string> languages;

    std::string environment;
    for (const char* name : {"LANGUAGE", "LC_ALL", "LC_MESSAGES", "LANG"}) {
        if (const char* value = std::getenv(name)) environment += value;
        environment += '\n';
    }
    if (languages.empty() || environment != seenEnvironment) {
        languages = textLanguages();
        seenEnvironment = environment;
    }
    return languages;
}

const StringsTable& tableOf(Bundle* bundle, const std::string& language, std::string_view name)
{
    for (const LoadedTable& table : bundle->tables) {
        if (table.language == language && table.name == name) return table.texts;
    }
    LoadedTable table{language, std::string(name), {}};
    const std::string path = bundle->folder + "/" + language + "/" + table.name + ".strings";
    if (const auto bytes = readWholeFile(path, kMaxTableSize)) {
        table.texts = StringsTable(*bytes);
    }
    // Only now, so that a table is not kept without its texts if memory runs out.
    return bundle->tables.emplace_back(std::move(table)).texts;
}

std::optional<std::u16string_view> find(Bundle* bundle, std::string_view table,
                                        std::u16string_view key)
{
    if (bundle == nullptr) return std::nullopt;
    for (const std::string& language : currentLanguages()) {
        if (const auto text = tableOf(bundle, language, table).find(key)) return text;
    }
    return std::nullopt;
}

const StringsTable& userTableOf(std::string_view name)
{
    for (const LoadedTable& table : gUserTables.tables) {
        if (table.name == name) return table.texts;
    }
    LoadedTable table{{}, std::string(name), {}};
    const std::string path = gUserTables.folder + "/" + table.name + ".strings";
    if (const auto bytes = readWholeFile(path, kMaxTableSize)) {
        table.texts = StringsTable(*bytes);
    }
    for (const std::size_t line : table.texts.damagedLines()) {
        std::fprintf(stderr, "%s: %s:%zu: malformed line skipped, expected \"key\" = \"value\";\n",
                     program_invocation_short_name, printable(path).c_str(), line);
    }
    return gUserTables.tables.emplace_back(std::move(table)).texts;
}

std::optional<std::u16string_view> findForUser(std::string_view table, std::u16string_view key)
{
    if (!gUserTables.folder.empty()) {
        if (const auto text = userTableOf(table).find(key)) return text;
    }
    return find(gMainBundle, table, key);
}

void appendNumber(std::u16string* key, std::int16_t number)
{
    const std::string digits = std::to_string(number);
    key->append(digits.begin(), digits.end());
}

// The text of a key in the table Localizable, else the key.
TovStringRef copyText(Bundle* bundle, std::u16string_view key)
{
    return createString(find(bundle, kDefaultTable, key).value_or(key));
}
}  // namespace

void* iuRegisterBundle(TovStringRef identifier, const char* resourceFolder, bool isMain)
{
    return baseGuardMemory([&]() -> void* {
        if (identifier == nullptr || resourceFolder == nullptr) return nullptr;
        const std::u16string_view name = unitsOf(identifier);
        Bundle* bundle = findBundle(name);
        std::string folder = resourceFolder;
        if (bundle == nullptr) {
            auto made = std::make_unique<Bundle>();
            made->identifier = name;
            bundle = gBundles.emplace_back(std::move(made)).get();
        }
        bundle->folder = std::move(folder);
        bundle->tables.clear();
        if (isMain) gMainBundle = bundle;
        return bundle;
    });
}

void* initStringBundle(TovStringRef bundleIdentifier)
{
    gCFBundleRef = bundleIdentifier == nullptr ? nullptr : findBundle(unitsOf(bundleIdentifier));
    return gCFBundleRef;
}

TovStringRef iuGetIndCFString(std::int16_t table, std::int16_t index)
{
    return baseGuardMemory([&]() -> TovStringRef {
        std::u16string key = u"STR#";
        appendNumber(&key, table);
        key += u':';
        appendNumber(&key, index);
        return copyText(static_cast<Bundle*>(gCFBundleRef), key);
    });
}

TovStringRef iuGetIndKVLCFString(std::int16_t index)
{
    return baseGuardMemory([&]() -> TovStringRef {
        std::u16string key;
        appendNumber(&key, index);
        return copyText(gMainBundle, key);
    });
}

bool iuHasText(std::u16string_view key)
{
    return find(gMainBundle, kDefaultTable, key).has_value();
}

TovStringRef iuCopyLocalizedString(TovStringRef key, TovStringRef defaultValue,
                                   const char* tableName)
{
    return baseGuardMemory([&]() -> TovStringRef {
        if (key == nullptr && defaultValue == nullptr) return nullptr;
        const bool isNamed = tableName != nullptr && *tableName != '\0';
        const std::u16string_view keyUnits = unitsOf(key);
        const std::u16string_view fallback = unitsOf(defaultValue);
        const auto text = key == nullptr
                              ? std::nullopt
                              : findForUser(isNamed ? tableName : kDefaultTable, keyUnits);
        return createString(text.value_or(fallback.empty() ? keyUnits : fallback));
    });
}

void iuSetUserTableFolder(const char* folder)
{
    (void)baseGuardMemory([folder] {
        UserTables tables;
        if (folder != nullptr) tables.folder = folder;
        gUserTables = std::move(tables);
        return true;
    });
}

TovStringRef iuCopyMainBundleIdentifier()
{
    return gMainBundle == nullptr ? nullptr : createString(gMainBundle->identifier);
}
