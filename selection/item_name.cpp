#include "selection/item_name.h"

#include <dirent.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <functional>
#include <memory>

namespace pinorama {
namespace {
constexpr std::size_t kMaxEntries = 100000;
constexpr QChar kReplacement = QChar::ReplacementCharacter;

struct FolderCloser {
    void operator()(DIR* folder) const { closedir(folder); }
};

std::vector<std::string> namesIn(const std::string& folder)
{
    std::vector<std::string> names;
    const std::unique_ptr<DIR, FolderCloser> stream(opendir(folder.c_str()));
    if (!stream) return names;
    while (names.size() < kMaxEntries) {
        const dirent* entry = readdir(stream.get());
        if (entry == nullptr) break;
        const std::string_view name = entry->d_name;
        if (name != "." && name != "..") names.emplace_back(name);
    }
    return names;
}

QString composed(const QString& text)
{
    return text.normalized(QString::NormalizationForm_C);
}

// Some toolkits show one U+FFFD for each malformed byte, others one for a run of them.
QString withShortReplacements(const QString& text)
{
    QString result;
    for (const QChar c : text) {
        if (c != kReplacement || !result.endsWith(kReplacement)) result += c;
    }
    return result;
}

bool isControl(QChar c)
{
    return c.unicode() < 0x20 || c.unicode() == 0x7f;
}

QString withoutBlanksAndControls(const QString& text)
{
    QString result;
    for (const QChar c : text) {
        const bool isPicture = c.unicode() >= 0x2400 && c.unicode() <= 0x2426;
        const bool isArrow = c.unicode() == 0x21b5 || c.unicode() == 0x2028;  // ↵, line separator
        if (!isControl(c) && !isPicture && !isArrow && !c.isSpace()) result += c;
    }
    return result;
}

bool isShownDamaged(const QString& name, const QString& shown)
{
    if (!name.contains(kReplacement)) return false;
    const QString whole = withShortReplacements(composed(name));
    const QString seen = withShortReplacements(composed(shown));
    if (seen == whole) return true;
    // "name (invalid encoding)", in the user's language.
    return seen.startsWith(whole + QStringLiteral(" (")) && seen.endsWith(u')');
}

bool isShownWithoutControls(const QString& name, const QString& shown)
{
    bool hasControl = false;
    for (const QChar c : name) hasControl = hasControl || isControl(c);
    return hasControl &&
           withoutBlanksAndControls(composed(name)) == withoutBlanksAndControls(composed(shown));
}

bool isShownWithoutExtension(const QString& name, const QString& shown)
{
    const qsizetype dot = name.lastIndexOf(u'.');
    return dot > 0 && composed(name.left(dot)) == composed(shown);
}
}  // namespace

std::optional<std::string> nameOfShownItem(const std::vector<std::string>& names,
                                           const QString& shown)
{
    using Rule = std::function<bool(const std::string&, const QString&)>;
    const QByteArray bytes = shown.toUtf8();
    const std::array<Rule, 5> rules = {
        [&](const std::string& name, const QString&) { return bytes == name.c_str(); },
        [&](const std::string&, const QString& text) { return composed(text) == composed(shown); },
        [&](const std::string&, const QString& text) { return isShownDamaged(text, shown); },
        [&](const std::string&, const QString& text) {
            return isShownWithoutControls(text, shown);
        },
        [&](const std::string&, const QString& text) {
            return isShownWithoutExtension(text, shown);
        },
    };
    std::vector<QString> texts;
    texts.reserve(names.size());
    for (const std::string& name : names) texts.push_back(QString::fromStdString(name));

    for (const Rule& rule : rules) {
        const std::string* found = nullptr;
        for (std::size_t i = 0; i < names.size(); i++) {
            if (!rule(names[i], texts[i])) continue;
            if (found != nullptr) return std::nullopt;
            found = &names[i];
        }
        if (found != nullptr) return *found;
    }
    return std::nullopt;
}

std::pair<std::size_t, std::size_t> itemCounts(const std::string& folder)
{
    const std::vector<std::string> names = namesIn(folder);
    const auto shown = std::count_if(
        names.begin(), names.end(), [](const std::string& name) { return !name.starts_with('.'); });
    return {static_cast<std::size_t>(shown), names.size()};
}

std::optional<std::string> existingItem(std::string path)
{
    while (path.size() > 1 && path.ends_with('/')) path.pop_back();
    struct stat item = {};
    if (lstat(path.c_str(), &item) != 0) return std::nullopt;
    struct stat target = {};
    const bool isFolder = stat(path.c_str(), &target) == 0 && S_ISDIR(target.st_mode);
    if (isFolder && path != "/") path += '/';
    return path;
}

std::optional<std::string> pathOfShownItem(const std::string& folder, const QString& shown)
{
    if (shown.isEmpty() || folder.empty()) return std::nullopt;
    const std::string prefix = folder.ends_with('/') ? folder : folder + '/';
    if (!shown.contains(u'/') && !shown.contains(QChar::Null) && shown != QLatin1String(".") &&
        shown != QLatin1String("..")) {
        auto item = existingItem(prefix + shown.toStdString());
        if (item) return item;
    }
    const auto name = nameOfShownItem(namesIn(folder), shown);
    if (!name) return std::nullopt;
    return existingItem(prefix + *name);
}

}  // namespace pinorama
