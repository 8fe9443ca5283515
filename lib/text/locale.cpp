#include "lib/text/locale.h"

#include "base/ascii.h"

#include <algorithm>
#include <cstdlib>
#include <initializer_list>
#include <string_view>

using namespace pinorama;

namespace {
constexpr const char* kEnglish = "en";

// The first variable that is set and not empty; empty if none is.
std::string_view firstSet(std::initializer_list<const char*> names)
{
    for (const char* name : names) {
        const char* value = std::getenv(name);
        if (value != nullptr && *value != '\0') return value;
    }
    return {};
}

// A locale's name in its pieces: language_TERRITORY.charset@modifier.
struct Name {
    std::string language, territory, modifier;
};

// Cuts `text` at the first `separator` and returns what stood after it.
std::string_view cutBehind(std::string_view& text, char separator)
{
    const std::size_t at = text.find(separator);
    if (at == std::string_view::npos) return {};
    const std::string_view rest = text.substr(at + 1);
    text = text.substr(0, at);
    return rest;
}

Name parse(std::string_view text)
{
    Name name;
    name.modifier = cutBehind(text, '@');
    (void)cutBehind(text, '.');  // texts are Unicode, whatever the character set
    name.territory = cutBehind(text, '_');
    name.language = text;
    return name;
}

bool isPlainlyC(std::string_view locale)
{
    return locale == "C" || locale == "POSIX";
}

bool meansEnglish(const Name& name)
{
    return name.language.empty() || isPlainlyC(name.language);
}

// The name becomes part of a folder's path, and the environment may hold anything.
bool isHarmless(std::string_view name)
{
    return std::all_of(name.begin(), name.end(), [](char c) {
        return isASCIIAlphanumeric(c) || c == '_' || c == '-' || c == '@';
    });
}

void addUnlessThere(std::vector<std::string>& languages, const std::string& name)
{
    if (!isHarmless(name)) return;
    if (std::find(languages.begin(), languages.end(), name) != languages.end()) return;
    languages.push_back(name);
}

void addWithGeneralForms(std::vector<std::string>& languages, const Name& name)
{
    const std::string territory = name.territory.empty() ? "" : "_" + name.territory;
    if (!name.modifier.empty()) {
        addUnlessThere(languages, name.language + territory + "@" + name.modifier);
        addUnlessThere(languages, name.language + "@" + name.modifier);
    }
    addUnlessThere(languages, name.language + territory);
    addUnlessThere(languages, name.language);
}

// What ICU calls the locale: scripts are a piece of the name there, not a modifier.
std::string localeForFormats(std::string_view locale)
{
    const Name name = parse(locale);
    if (meansEnglish(name) || !isHarmless(name.language) || !isHarmless(name.territory)) {
        return kEnglish;
    }
    std::string result = name.language;
    if (name.modifier == "latin") result += "_Latn";
    if (name.modifier == "cyrillic") result += "_Cyrl";
    if (!name.territory.empty()) result += "_" + name.territory;
    return result;
}
}  // namespace

std::vector<std::string> pinorama::textLanguages()
{
    const std::string_view locale = firstSet({"LC_ALL", "LC_MESSAGES", "LANG"});
    std::string_view list = isPlainlyC(locale) ? locale : firstSet({"LANGUAGE"});
    if (list.empty()) list = locale;

    std::vector<std::string> languages;
    while (!list.empty()) {
        std::string_view wanted = list;
        list = cutBehind(wanted, ':');
        const Name name = parse(wanted);
        if (name.language.empty()) continue;
        if (meansEnglish(name)) break;
        addWithGeneralForms(languages, name);
        if (name.language == kEnglish) break;
    }
    if (languages.empty() || languages.back() != kEnglish) languages.emplace_back(kEnglish);
    return languages;
}

std::string pinorama::numberLocale()
{
    return localeForFormats(firstSet({"LC_ALL", "LC_NUMERIC", "LANG"}));
}

std::string pinorama::dateLocale()
{
    return localeForFormats(firstSet({"LC_ALL", "LC_TIME", "LANG"}));
}
