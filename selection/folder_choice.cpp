#include "selection/folder_choice.h"

#include "base/file_uri.h"
#include "base/user_folders.h"
#include "selection/item_name.h"

#include <algorithm>
#include <functional>
#include <map>
#include <optional>

namespace pinorama {
namespace {

constexpr std::size_t kMaxRowLength = 64;  // buttons; no path bar shows more

std::optional<std::string> existingFolder(KnownItems& items, const std::string& path)
{
    auto item = existingItem(items, path);
    if (!item || !item->ends_with('/')) return std::nullopt;
    if (item->size() > 1) item->pop_back();
    return item;
}

std::optional<std::string> folderOfLocation(KnownItems& items, const QString& location)
{
    const std::string text = location.toStdString();
    if (text.starts_with("file:")) {
        const auto path = pathOfFileURI(text);
        return path ? existingFolder(items, *path) : std::nullopt;
    }
    if (text == "~" || text.starts_with("~/")) {
        return existingFolder(items, homeFolder() + text.substr(1));
    }
    return text.starts_with('/') ? existingFolder(items, text) : std::nullopt;
}

// Descends from `folder` by the names as they are shown, beginning with names[first].
std::optional<std::string> descend(KnownItems& items, std::string folder,
                                   const std::vector<QString>& names, std::size_t first)
{
    // All of the way is asked for at once.
    std::string way = folder;
    for (std::size_t i = first; i < names.size(); i++) {
        way += (way.ends_with('/') ? "" : "/") + names[i].toStdString();
        (void)items.item(way);
    }
    for (std::size_t i = first; i < names.size(); i++) {
        const auto item = pathOfShownItem(items, folder, names[i]);
        if (!item || !item->ends_with('/')) return std::nullopt;
        folder = item->substr(0, item->size() - 1);
    }
    return existingFolder(items, folder);
}

class Finder {
public:
    Finder(KnownItems& items, const FolderHints& hints,
           const std::vector<NamedFolder>& namedFolders)
        : items_(items), hints_(hints), namedFolders_(namedFolders)
    {
    }

    std::vector<std::string> fromLocations() const
    {
        std::vector<std::string> folders;
        for (const QString& location : hints_.locations) {
            if (const auto folder = folderOfLocation(items_, location)) folders.push_back(*folder);
        }
        return folders;
    }

    std::vector<std::string> fromRows() const
    {
        std::vector<std::string> folders;
        for (const auto& row : hints_.rows) {
            if (row.size() > kMaxRowLength) continue;
            addRow(row, folders);
            std::vector<RowButton> reversed(row.rbegin(), row.rend());
            addRow(reversed, folders);
        }
        return folders;
    }

    // A path that begins with an unknown name, tried in every named folder. Guesses, so that it is
    // only used if nothing else was found.
    std::vector<std::string> fromRowsInAnyNamedFolder() const
    {
        std::vector<std::string> folders;
        for (const auto& row : hints_.rows) {
            for (const bool isReversed : {false, true}) {
                std::vector<QString> names = namesOf(row, isReversed);
                if (names.size() < 2 || row.size() > kMaxRowLength) continue;
                if (!hints_.title.contains(names.back())) continue;
                for (const NamedFolder& start : namedFolders_) {
                    if (const auto folder = descend(items_, start.path, names, 1))
                        folders.push_back(*folder);
                }
            }
        }
        return folders;
    }

    std::vector<std::string> fromTitle() const
    {
        std::vector<std::string> folders;
        if (const auto folder = folderOfLocation(items_, hints_.title)) folders.push_back(*folder);
        for (const NamedFolder& start : namedFolders_) {
            if (!start.name.isEmpty() && hints_.title.startsWith(start.name)) {
                if (const auto folder = existingFolder(items_, start.path))
                    folders.push_back(*folder);
            }
        }
        return folders;
    }

private:
    static std::vector<QString> namesOf(const std::vector<RowButton>& row, bool isReversed)
    {
        std::vector<QString> names;
        for (const RowButton& button : row) {
            if (!button.name.isEmpty()) names.push_back(button.name);
        }
        if (isReversed) std::reverse(names.begin(), names.end());
        return names;
    }

    void addPath(const std::vector<QString>& names, std::vector<std::string>& folders) const
    {
        if (names.empty()) return;
        if (names.front() == QLatin1String("/") || names.front().isEmpty()) {
            if (const auto folder = descend(items_, "/", names, 1)) folders.push_back(*folder);
        }
        for (const NamedFolder& start : namedFolders_) {
            if (start.name != names.front()) continue;
            if (const auto folder = descend(items_, start.path, names, 1))
                folders.push_back(*folder);
        }
        // A row that begins below the root, because the button of the root shows an icon.
        if (const auto folder = descend(items_, "/", names, 0)) folders.push_back(*folder);
    }

    // `row` goes from the root to the folder. The arrows at its ends have no name; nor has the root
    // in some path bars, which addPath() allows for.
    void addRow(const std::vector<RowButton>& row, std::vector<std::string>& folders) const
    {
        std::vector<QString> names;
        std::vector<QString> namesUpToPressed;
        for (const RowButton& button : row) {
            if (button.name.isEmpty()) continue;
            names.push_back(button.name);
            if (button.isOn) namesUpToPressed = names;
        }
        if (!namesUpToPressed.empty()) addPath(namesUpToPressed, folders);
        addPath(names, folders);
    }

    KnownItems& items_;
    const FolderHints& hints_;
    const std::vector<NamedFolder>& namedFolders_;
};
}  // namespace

std::vector<std::string> foldersShown(KnownItems& items, const FolderHints& hints,
                                      const std::vector<NamedFolder>& namedFolders,
                                      const std::function<bool(const ItemFacts&)>& isWatched)
{
    const Finder finder(items, hints, namedFolders);
    std::vector<std::string> result;
    const auto isNamedInTitle = [&](const std::string& folder) {
        const QString name = QString::fromStdString(folder.substr(folder.rfind('/') + 1));
        return !name.isEmpty() && hints.title.contains(name);
    };
    const auto isSeen = [&](const std::string& folder) {
        const ItemFacts* facts = isWatched ? items.item(folder) : nullptr;
        return facts != nullptr && isWatched(*facts);
    };
    const auto add = [&](const std::vector<std::string>& folders) {
        // A multimap keeps entries with equal keys in the order of insertion.
        std::multimap<int, std::string, std::greater<>> ranked;
        for (const std::string& folder : folders) {
            ranked.emplace((isNamedInTitle(folder) ? 2 : 0) + (isSeen(folder) ? 1 : 0), folder);
        }
        for (const auto& [rank, folder] : ranked) {
            if (std::find(result.begin(), result.end(), folder) == result.end())
                result.push_back(folder);
        }
    };
    // Another folder of that name may be shown, with other pictures of the same names.
    const auto confirmed = [&](std::vector<std::string> folders) {
        if (isWatched)
            std::erase_if(folders, [&](const std::string& folder) { return !isSeen(folder); });
        return folders;
    };
    add(finder.fromLocations());
    add(finder.fromRows());
    if (result.empty()) add(confirmed(finder.fromRowsInAnyNamedFolder()));
    add(confirmed(finder.fromTitle()));
    return result;
}

}  // namespace pinorama
