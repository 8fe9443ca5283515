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
    likely_ = foldersShown(hints, {}, {});
    if (!noted_.empty() && std::find(likely_.begin(), likely_.end(), noted_) == likely_.end())
        likely_.push_back(noted_);
    if (likely_.empty()) {
        auto rows = co_await readRows(query, layout);
        if (!rows) co_return false;
        hints.rows = std::move(*rows);
        likely_ = foldersShown(hints, namedFolders(), foldersWatchedBy(process_));
        // There may be a path bar for each pane, of which this layout knows the one that was seen
        // first.
        if (likely_.empty() && foundIn_ == layout) co_return false;
    }
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

std::optional<std::string> WindowFolder::pathOf(const QString& name)
{
    std::size_t found = 0;
    std::optional<std::string> path;
    for (; found < likely_.size() && !path; found++) path = pathOfShownItem(likely_[found], name);
    if (!path) return std::nullopt;
    found--;
    // Two panes may show folders of one name, with pictures of one name: memory cards do.
    std::function<bool(const std::string&)> isWatched;
    for (std::size_t i = found + 1; i < likely_.size(); i++) {
        if (nameOf(likely_[i]) != nameOf(likely_[found])) continue;
        if (!pathOfShownItem(likely_[i], name)) continue;
        if (!isWatched) isWatched = foldersWatchedBy(process_);
        if (isWatched(likely_[i]) == isWatched(likely_[found])) return std::nullopt;
    }
    const auto first = likely_.begin() + static_cast<long>(found);
    std::rotate(likely_.begin(), first, first + 1);
    return path;
}

// A cell counts only if it fits the folder that the window showed before, and its title: the Trash
// has a column with paths as well, those from which the items were deleted.
WindowFolder::Cell WindowFolder::cell(const QString& text) const
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
    const auto item = existingItem(folder);
    if (!item || !item->ends_with('/')) return {isWhole ? CellKind::elsewhere : CellKind::other};
    return {CellKind::location, folder};
}

std::optional<std::pair<std::size_t, std::size_t>> WindowFolder::itemCounts() const
{
    if (likely_.empty()) return std::nullopt;
    return pinorama::itemCounts(likely_.front());
}

std::optional<std::string> WindowFolder::pathInFirst(const QString& name) const
{
    return likely_.empty() ? std::nullopt : pathOfShownItem(likely_.front(), name);
}

}  // namespace pinorama
