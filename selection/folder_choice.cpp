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

constexpr std::size_t kLongestRow = 64;  // buttons; no path bar shows more

std::optional<std::string> existingFolder(const std::string& path)
{
    auto item = existingItem(path);
    if (!item || !item->ends_with('/')) return std::nullopt;
    if (item->size() > 1) item->pop_back();
    return item;
}

std::optional<std::string> folderOfLocation(const QString& location)
{
    const std::string text = location.toStdString();
    if (text.starts_with("file:")) {
        const auto path = pathOfFileURI(text);
        return path ? existingFolder(*path) : std::nullopt;
    }
    if (text == "~" || text.starts_with("~/")) {
        return existingFolder(homeFolder() + text.substr(1));
    }
    return text.starts_with('/') ? existingFolder(text) : std::nullopt;
}

// Goes down from `start` by the names as they are shown.
std::optional<std::string> descend(std::string folder, const std::vector<QString>& names,
                                   std::size_t first)
{
    for (std::size_t i = first; i < names.size(); i++) {
        const auto item = pathOfShownItem(folder, names[i]);
        if (!item || !item->ends_with('/')) return std::nullopt;
        folder = item->substr(0, item->size() - 1);
    }
    return existingFolder(folder);
}

class Finder {
public:
    Finder(const FolderClues& clues, const std::vector<Place>& places)
        : clues_(clues), places_(places)
    {
    }

    std::vector<std::string> fromLocations() const
    {
        std::vector<std::string> folders;
        for (const QString& location : clues_.locations) {
            if (const auto folder = folderOfLocation(location)) folders.push_back(*folder);
        }
        return folders;
    }

    std::vector<std::string> fromRows() const
    {
        std::vector<std::string> folders;
        for (const auto& row : clues_.rows) {
            if (row.size() > kLongestRow) continue;
            addRow(row, folders);
            std::vector<RowButton> reversed(row.rbegin(), row.rend());
            addRow(reversed, folders);
        }
        return folders;
    }

    // The whole way from an unknown place; only worth a try when nothing else was found.
    std::vector<std::string> fromRowsAtAnyPlace() const
    {
        std::vector<std::string> folders;
        for (const auto& row : clues_.rows) {
            for (const bool isReversed : {false, true}) {
                std::vector<QString> names = namesOf(row, isReversed);
                if (names.size() < 2 || row.size() > kLongestRow) continue;
                if (!clues_.title.contains(names.back())) continue;
                for (const Place& place : places_) {
                    if (const auto folder = descend(place.path, names, 1))
                        folders.push_back(*folder);
                }
            }
        }
        return folders;
    }

    std::vector<std::string> fromTitle() const
    {
        std::vector<std::string> folders;
        if (const auto folder = folderOfLocation(clues_.title)) folders.push_back(*folder);
        for (const Place& place : places_) {
            if (!place.name.isEmpty() && clues_.title.startsWith(place.name)) {
                if (const auto folder = existingFolder(place.path)) folders.push_back(*folder);
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
            if (const auto folder = descend("/", names, 1)) folders.push_back(*folder);
        }
        for (const Place& place : places_) {
            if (place.name != names.front()) continue;
            if (const auto folder = descend(place.path, names, 1)) folders.push_back(*folder);
        }
        // A row that begins right below the root, whose own button is drawn as a picture.
        if (const auto folder = descend("/", names, 0)) folders.push_back(*folder);
    }

    // `row` from the root to the folder. Arrows at its ends have no name; neither has the root in
    // some path bars, which makes no difference here.
    void addRow(const std::vector<RowButton>& row, std::vector<std::string>& folders) const
    {
        std::vector<QString> names;
        std::vector<QString> namesToTheOneThatIsOn;
        for (const RowButton& button : row) {
            if (button.name.isEmpty()) continue;
            names.push_back(button.name);
            if (button.isOn) namesToTheOneThatIsOn = names;
        }
        if (!namesToTheOneThatIsOn.empty()) addPath(namesToTheOneThatIsOn, folders);
        addPath(names, folders);
    }

    const FolderClues& clues_;
    const std::vector<Place>& places_;
};
}  // namespace

std::vector<std::string> foldersShown(const FolderClues& clues, const std::vector<Place>& places,
                                      const std::function<bool(const std::string&)>& isWatched)
{
    const Finder finder(clues, places);
    std::vector<std::string> result;
    const auto isNamedInTitle = [&](const std::string& folder) {
        const QString name = QString::fromStdString(folder.substr(folder.rfind('/') + 1));
        return !name.isEmpty() && clues.title.contains(name);
    };
    const auto add = [&](const std::vector<std::string>& folders) {
        // Those of the same rank stay in their order.
        std::multimap<int, std::string, std::greater<>> ranked;
        for (const std::string& folder : folders) {
            const bool isSeenByIt = isWatched && isWatched(folder);
            ranked.emplace((isNamedInTitle(folder) ? 2 : 0) + (isSeenByIt ? 1 : 0), folder);
        }
        for (const auto& [rank, folder] : ranked) {
            if (std::find(result.begin(), result.end(), folder) == result.end())
                result.push_back(folder);
        }
    };
    add(finder.fromLocations());
    add(finder.fromRows());
    if (result.empty()) add(finder.fromRowsAtAnyPlace());
    add(finder.fromTitle());
    return result;
}

}  // namespace pinorama
