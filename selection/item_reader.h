// Reads an item of a view: its name, in one of the objects that it consists of, and the path of the
// item of that name in the folder that the window shows.

#pragma once

#include <QString>

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "selection/accessible.h"
#include "selection/dbus_query.h"
#include "selection/frame_walk.h"
#include "selection/window_folder.h"

namespace pinorama {

class ManagerWindow;

// An item, and what it reports about itself.
struct NamedItem {
    Accessible item;               // null if it did not reply
    Accessible part;               // the part of it that has the name, mostly the item itself
    QString name;                  // of that part
    bool reportsSelected = false;  // whether the item's own state says that it is selected
    bool hasParts = false;         // whether it consists of further objects, if that was asked
    std::optional<std::string> path = {};  // nothing if the folder has no such item
};

class ItemReader {
public:
    using OutlivesItsTasks = void;  // it is a part of the task that reads the window

    // `layout` and `folder` are those of the window; the window and `folder` must outlive this.
    ItemReader(const ManagerWindow& window, SharedLayout layout, WindowFolder& folder)
        : window_(window), layout_(std::move(layout)), folder_(folder)
    {
    }

    SharedLayout layout() const { return layout_; }
    WindowFolder& folder() { return folder_; }

    // An item of a folder (an absolute path in raw bytes); of the window's folder if that is empty.
    Task<NamedItem> named(DBusQuery& query, Accessible item, std::string folder = {});

private:
    Task<NamedItem> namedInside(DBusQuery& query, NamedItem item, std::string folder);
    Task<std::optional<std::string>> pathOf(DBusQuery& query, std::string folder, QString name);
    Task<std::vector<std::string>> pathsOf(DBusQuery& query, std::string folder,
                                           std::vector<QString> names);

    const ManagerWindow& window_;
    SharedLayout layout_;
    WindowFolder& folder_;
};

}  // namespace pinorama
