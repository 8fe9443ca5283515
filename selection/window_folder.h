// Finds out which folder a window of a file manager shows, from the window's location entries and
// rows of buttons. Several folders may match; the right one is the one that contains the selected
// item.

#pragma once

#include <QString>

#include <sys/types.h>

#include <optional>
#include <string>
#include <vector>

#include "selection/dbus_query.h"
#include "selection/folder_choice.h"
#include "selection/frame_walk.h"
#include "selection/known_items.h"

namespace pinorama {

// How a list of results of a search shows the folder of an item, in a column beside its name.
enum class LocationColumn {
    none,
    wholePath,
    belowParent,  // of the folder in which the search began
};

class WindowFolder {
public:
    using OutlivesItsTasks = void;  // it is a member of the reader that calls it

    // `column` is that of its lists. A desktop always shows the user's desktop folder, so it needs
    // no call.
    WindowFolder(LocationColumn column, pid_t process, bool isDesktop)
        : column_(column), process_(process), isDesktop_(isDesktop)
    {
    }

    // Whether the folder depends on what the window shows.
    bool isDesktop() const { return isDesktop_; }

    // Takes the folders that the file manager publishes for the window with this title.
    void take(const QString& title, std::vector<std::string> published);

    // Reads the window with this title. Returns false if the window no longer has the structure of
    // `layout`; the folder stays as it was read before.
    Task<bool> read(DBusQuery& query, QString title, SharedLayout layout);

    // When the window was read last.
    Clock::time_point readAt() const { return readAt_; }

    // An extension reported the folder that the window shows, or showed a moment ago.
    void note(const std::string& folder) { noted_ = folder; }

    // The path of the item that the window shows by this name, in the likeliest folder that has
    // such an item. That folder becomes the likeliest. Nothing if two folders have such an item and
    // cannot be told apart.
    Task<std::optional<std::string>> pathOf(DBusQuery& query, QString name);

    // What a cell beside a name says about the folder of that item. Results of a search come from
    // several folders, and may have their location in a column. Other cells say nothing.
    enum class CellKind { other, location, elsewhere };
    struct Cell {
        CellKind kind = CellKind::other;
        std::string folder = {};  // of a location
    };
    Cell cell(KnownItems& items, const QString& text) const;

    // The number of items in the likeliest folder; nothing if no folder is known.
    Task<std::optional<FolderCount>> itemCount(DBusQuery& query) const;

    // The path of the item in the likeliest folder alone.
    Task<std::optional<std::string>> pathInFirst(DBusQuery& query, QString name) const;

private:
    using Rows = std::vector<std::vector<RowButton>>;
    Task<std::optional<Rows>> readRows(DBusQuery& query, SharedLayout layout);

    LocationColumn column_;
    pid_t process_;
    bool isDesktop_;
    std::string noted_;
    QString title_;
    std::vector<std::string> likely_;  // folders that the window may show, the likeliest first
    std::string last_;      // the likeliest of them when there was one; a search begins there
    SharedLayout foundIn_;  // in which that folder was found
    Clock::time_point readAt_;
};

}  // namespace pinorama
