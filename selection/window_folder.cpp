#include "selection/window_folder.h"

#include "base/user_folders.h"
#include "selection/item_name.h"
#include "selection/named_folders.h"
#include "selection/watched_folders.h"

#include <algorithm>
#include <utility>

namespace pinorama {
namespace {
constexpr int kMaxPathLength = 4096;  // in characters of AT-SPI's Text interface
}  // namespace

Task<bool> WindowFolder::read(DBusQuery& query, QString title, SharedLayout layout)
{
    readAt_ = Clock::now();
    if (isDesktop_) {
        likely_ = {desktopFolder()};
        co_return true;
    }
    FolderHints hints;
    hints.title = title;
    const auto calls = callsFor(layout->locations, [](const Accessible& entry) {
        // GTK 4 does not accept -1 for the end of the text; any number beyond the end will do.
        return textCall(entry, isGtk4Object(entry) ? kMaxPathLength : -1);
    });
    const auto replies = co_await query.replies(calls);
    for (const QDBusMessage& reply : replies) {
        const auto text = textIn(reply);
        if (!text) co_return false;
        hints.locations.push_back(*text);
    }
    likely_ = foldersShown(hints, {}, {});
    if (!noted_.empty()) likely_.push_back(noted_);
    if (!likely_.empty()) co_return true;

    auto rows = co_await readRows(query, layout);
    if (!rows) co_return false;
    hints.rows = std::move(*rows);
    likely_ = foldersShown(hints, namedFolders(), foldersWatchedBy(process_));
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
        for (std::size_t i = 0; i < row.size(); i++, reply += 2) {
            const auto name = textIn(reply[0]);
            if (!name) co_return std::nullopt;
            const States states = statesIn(reply[1]).value_or(0);
            buttons.push_back({*name, has(states, State::checked) || has(states, State::pressed)});
        }
        rows.push_back(std::move(buttons));
    }
    co_return rows;
}

std::optional<std::string> WindowFolder::pathOf(const QString& name)
{
    for (std::size_t i = 0; i < likely_.size(); i++) {
        auto path = pathOfShownItem(likely_[i], name);
        if (!path) continue;
        std::rotate(likely_.begin(), likely_.begin() + static_cast<long>(i),
                    likely_.begin() + static_cast<long>(i) + 1);
        return path;
    }
    return std::nullopt;
}

}  // namespace pinorama
