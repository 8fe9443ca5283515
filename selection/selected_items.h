// Reads what is selected in a view of files. Each kind of view reports it in its own way: through
// the Selection or the Table interface, through the states of its items, or not at all, so that
// only the status bar names it.

#pragma once

#include <QString>

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "selection/accessible.h"
#include "selection/dbus_query.h"
#include "selection/dolphin_window.h"
#include "selection/file_manager_kind.h"
#include "selection/frame_walk.h"
#include "selection/validator.h"
#include "selection/window_folder.h"

namespace pinorama {

// An item, and what it reports about itself.
struct NamedItem {
    Accessible item;               // null if it did not reply
    Accessible part;               // the part of it that has the name, mostly the item itself
    QString name;                  // of that part
    bool reportsSelected = false;  // whether the item's own state says that it is selected
    std::optional<std::string> path = {};  // nothing if the folder has no such item
};

struct SelectedItems {
    bool isKnown = false;                  // false if the view did not reply
    std::vector<NamedItem> items;          // in the order of the view, at most 64
    std::optional<std::string> path = {};  // of the only item, if the status bar named it
    Validators validators = {};            // of all replies that are cheap to get again
};

class SelectedItemsReader {
public:
    using OutlivesItsTasks = void;  // it is a part of the task that reads the window

    // `layout` and `folder` are those of the window; `folder` must outlive this. `dolphin` is used
    // for Dolphin only.
    SelectedItemsReader(FileManager manager, SharedLayout layout, WindowFolder& folder,
                        DolphinWindow dolphin)
        : manager_(manager),
          layout_(std::move(layout)),
          folder_(folder),
          dolphin_(std::move(dolphin))
    {
    }

    // Reads one view of the window. `likely` are items that are probably selected; each may be
    // null. They are tried first where the only other way is to ask every item of the view.
    Task<SelectedItems> read(DBusQuery& query, View view, std::vector<Accessible> likely);

private:
    Task<SelectedItems> readSelection(DBusQuery& query, View view);
    Task<SelectedItems> readQt6(DBusQuery& query, View view);
    Task<SelectedItems> readTable(DBusQuery& query, View view);
    Task<SelectedItems> readStates(DBusQuery& query, View view, std::vector<Accessible> likely);
    Task<SelectedItems> readStatus(DBusQuery& query);
    Task<std::vector<Accessible>> scan(DBusQuery& query, View view);
    Task<NamedItem> rowItem(DBusQuery& query, View view, int row, int columnCount);
    Task<std::optional<std::string>> folderOfRow(DBusQuery& query, View view, Accessible parent);
    Task<NamedItem> certain(DBusQuery& query, View view, NamedItem item);

    // An item of a folder; of the window's folder if that is empty.
    Task<NamedItem> named(DBusQuery& query, Accessible item, std::string folder = {});
    Task<NamedItem> namedInside(DBusQuery& query, NamedItem item, std::string folder);
    std::optional<std::string> pathOf(const std::string& folder, const QString& name);

    FileManager manager_;
    SharedLayout layout_;
    WindowFolder& folder_;
    DolphinWindow dolphin_;
};

}  // namespace pinorama
