#include "selection/window_folder.h"

#include "base/user_folders.h"
#include "selection/item_name.h"
#include "selection/named_folders.h"
#include "selection/watched_folders.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace pinorama {
namespace {
constexpr int kMaxPathLength = 4096;  // in characters of AT-SPI's Text interface

// Whether an object in these states can be seen. GTK 4 never sets the state "showing".
bool isSeen(const Accessible& object, States states)
{
    return has(states, isGtk4Object(object) ? State::visible : State::showing);
}

std::string nameOf(const std::string& folder)
{
    return folder.substr(folder.rfind('/') + 1);
}

std::string parentOf(const std::string& folder)
{
    return folder.substr(0, folder.rfind('/'));
}

std::string belowHome(const std::string& folder)
{
    const std::string home = homeFolder() + '/';
    return folder.starts_with(home) ? folder.substr(home.size()) : folder;
}

// Whether a title contains a path in quotation marks, those of any language.
bool isQuoted(const QString& title, const std::string& path)
{
    const QString text = QString::fromStdString(path);
    const qsizetype first = title.indexOf(text);
    if (first <= 0 || first + text.size() >= title.size()) return false;
    const auto isMark = [](QChar c) { return !c.isLetterOrNumber() && c != u'/'; };
    return isMark(title[first - 1]) && isMark(title[first + text.size()]);
}

bool isIn(const std::string& path, const std::string& folder)
{
    return path == folder || path.starts_with(folder + '/');
}

// An item, and in which of some folders it is.
struct Place {
    std::optional<std::string> path{};
    std::string folder{};
};

// The first of the folders that has the item; no path if another one might be meant as well.
Place placeOf(KnownItems& items, const std::vector<std::string>& folders, const QString& name,
              pid_t process)
{
    Place place;
    std::size_t next = 0;
    for (; next < folders.size() && !place.path; next++) {
        place = {pathOfShownItem(items, folders[next], name), folders[next]};
        if (!items.isComplete()) return {};
    }
    if (!place.path) return {};
    // Two panes may show folders of one name, with pictures of one name: memory cards do.
    std::function<bool(const ItemFacts&)> isWatched;
    const auto isSeen = [&](const std::string& folder) {
        const ItemFacts* facts = items.item(folder);
        return facts != nullptr && isWatched(*facts);
    };
    for (; next < folders.size(); next++) {
        if (nameOf(folders[next]) != nameOf(place.folder)) continue;
        if (!pathOfShownItem(items, folders[next], name)) continue;
        if (!isWatched) isWatched = foldersWatchedBy(process);
        if (isSeen(folders[next]) == isSeen(place.folder)) return {};
    }
    // A folder that nobody can look at may have one too.
    return items.isCertain() ? place : Place{};
}
}  // namespace

void WindowFolder::take(const QString& title, std::vector<std::string> published)
{
    readAt_ = Clock::now();
    title_ = title;
    likely_ = std::move(published);
}

Task<bool> WindowFolder::read(DBusQuery& query, QString title, SharedLayout layout)
{
    readAt_ = Clock::now();
    if (isDesktop_) {
        likely_ = {desktopFolder()};
        co_return true;
    }
    title_ = title;
    FolderHints hints;
    hints.title = title;
    std::vector<QDBusMessage> calls;
    for (const Accessible& entry : layout->locations) {
        // GTK 4 does not accept -1 for the end of the text; any number beyond the end will do.
        calls.push_back(textCall(entry, isGtk4Object(entry) ? kMaxPathLength : -1));
        calls.push_back(statesCall(entry));
    }
    const auto replies = co_await query.replies(calls);
    for (std::size_t i = 0; i < layout->locations.size(); i++) {
        const auto text = textIn(replies[2 * i]);
        // While results of a search are shown, the entry keeps the folder before, hidden.
        if (!text || !isSeen(layout->locations[i], statesIn(replies[2 * i + 1]).value_or(0)))
            co_return false;
        hints.locations.push_back(*text);
    }
    const auto findLocations = [hints](KnownItems& items) {
        return foldersShown(items, hints, {}, {});
    };
    std::vector<std::string> likely = co_await withItems(query, findLocations);
    if (!noted_.empty() && std::find(likely.begin(), likely.end(), noted_) == likely.end())
        likely.push_back(noted_);
    if (likely.empty()) {
        auto rows = co_await readRows(query, layout);
        if (!rows) co_return false;
        hints.rows = std::move(*rows);
        const auto findAll = [hints, named = namedFolders(),
                              isWatched = foldersWatchedBy(process_)](KnownItems& items) {
            return foldersShown(items, hints, named, isWatched);
        };
        likely = co_await withItems(query, findAll);
        // There may be a path bar for each pane, of which this layout knows the one that was seen
        // first.
        if (likely.empty() && foundIn_ == layout) co_return false;
    }
    likely_ = std::move(likely);
    if (likely_.empty()) co_return true;
    last_ = likely_.front();
    foundIn_ = layout;
    co_return true;
}

Task<std::optional<WindowFolder::Rows>> WindowFolder::readRows(DBusQuery& query,
                                                               SharedLayout layout)
{
    auto calls = callsFor(layout->rowParents,
                          [](const RowParent& parent) { return childCountCall(parent.object); });
    for (const auto& row : layout->rows) {
        for (const PathButton& button : row) {
            calls.push_back(nameCall(button.object));
            calls.push_back(statesCall(button.object));
        }
    }
    const auto replies = co_await query.replies(calls);
    Rows rows;
    auto reply = replies.begin();
    for (const RowParent& parent : layout->rowParents) {
        if (numberIn(*reply++) != parent.childCount) co_return std::nullopt;
    }
    for (const auto& row : layout->rows) {
        std::vector<RowButton> buttons;
        bool isRowSeen = false;
        for (std::size_t i = 0; i < row.size(); i++, reply += 2) {
            const auto name = textIn(reply[0]);
            if (!name) co_return std::nullopt;
            const States states = statesIn(reply[1]).value_or(0);
            isRowSeen = isRowSeen || isSeen(row[i].object, states);
            buttons.push_back({*name, has(states, State::checked) || has(states, State::pressed)});
        }
        // A path bar hides buttons for which it has no room, but not all of them.
        if (isRowSeen) rows.push_back(std::move(buttons));
    }
    co_return rows;
}

Task<std::optional<std::string>> WindowFolder::pathOf(DBusQuery& query, QString name)
{
    const std::vector<std::string> likely = likely_;
    const auto find = [likely, name, process = process_](KnownItems& items) {
        return placeOf(items, likely, name, process);
    };
    const Place place = co_await withItems(query, find);
    // Another reading may have found others meanwhile.
    const auto first = std::find(likely_.begin(), likely_.end(), place.folder);
    if (place.path && first != likely_.end()) std::rotate(likely_.begin(), first, first + 1);
    co_return place.path;
}

// A cell counts only if it fits the folder that the window showed before, and its title: the Trash
// has a column with paths as well, those from which the items were deleted.
WindowFolder::Cell WindowFolder::cell(KnownItems& items, const QString& text) const
{
    const std::string path = text.toStdString();
    const std::string& root = last_;
    const std::string name = nameOf(root);
    const bool isWhole = path.starts_with('/') || path.starts_with("~/");
    if (name.empty()) return {isWhole ? CellKind::elsewhere : CellKind::other};
    std::string folder;
    if (isWhole) {
        const bool isShown = !likely_.empty() && path == likely_.front();
        const bool isFound = column_ == LocationColumn::wholePath && isIn(path, root) &&
                             isQuoted(title_, belowHome(root));
        if (!isShown && !isFound) return {CellKind::elsewhere};
        folder = path;
    } else {
        if (column_ != LocationColumn::belowParent || !isIn(path, name) ||
            !title_.startsWith(QString::fromStdString(name)))
            return {};
        folder = parentOf(root) + '/' + path;
    }
    const auto item = existingItem(items, folder);
    if (!item || !item->ends_with('/')) return {isWhole ? CellKind::elsewhere : CellKind::other};
    return {CellKind::location, folder};
}

Task<std::optional<FolderCount>> WindowFolder::itemCount(DBusQuery& query) const
{
    std::optional<FolderCount> count;
    if (likely_.empty()) co_return count;
    const auto find = [folder = likely_.front()](KnownItems& items) {
        const FolderCount* found = items.count(folder);
        return found != nullptr && items.isCertain() ? std::optional(*found) : std::nullopt;
    };
    count = co_await withItems(query, find);
    co_return count;
}

Task<std::optional<std::string>> WindowFolder::pathInFirst(DBusQuery& query, QString name) const
{
    std::optional<std::string> path;
    if (likely_.empty()) co_return path;
    const auto find = [folder = likely_.front(), name](KnownItems& items) {
        return pathOfShownItem(items, folder, name);
    };
    path = co_await withItems(query, find);
    co_return path;
}

}  // namespace pinorama
