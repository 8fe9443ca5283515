// What is selected in a view of files. Each kind of view tells it in its own way: through the
// Selection or the Table interface, through the states of its items, or not at all, so that only
// the status bar says it.

#pragma once

#include <QString>

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "selection/accessible.h"
#include "selection/dbus_inquiry.h"
#include "selection/dolphin_window.h"
#include "selection/file_manager_kind.h"
#include "selection/frame_walk.h"
#include "selection/window_folder.h"
#include "selection/witness.h"

namespace pinorama {

// An item, and what it says of itself.
struct NamedItem {
    Accessible item;             // null when it did not answer
    Accessible part;             // the part of it that has its name, mostly the item itself
    QString name;                // as that part says it
    bool tellsItsState = false;  // whether the item says that it is selected
    std::optional<std::string> path = {};  // nothing when the folder has no such item
};

struct SelectedItems {
    bool isKnown = false;                  // false when the view did not answer
    std::vector<NamedItem> items;          // in the order of the view, at most 64
    std::optional<std::string> path = {};  // of the only one, when the status bar told it
    Witnesses witnesses = {};  // of all that was said, as far as it costs little to ask again
};

class SelectedItemsReader {
public:
    using OutlivesItsTasks = void;  // it is a part of the task that reads the window

    // The window that is read; `folder` must outlive this. `dolphin` counts in Dolphin only.
    SelectedItemsReader(FileManager manager, SharedLayout layout, WindowFolder& folder,
                        DolphinWindow dolphin)
        : manager_(manager),
          layout_(std::move(layout)),
          folder_(folder),
          dolphin_(std::move(dolphin))
    {
    }

    // Reads one view of the window. `likely` are the items that are probably selected; each may be
    // null. They are looked at before a view whose items have to be asked one by one.
    Task<SelectedItems> read(Inquiry& inquiry, View view, std::vector<Accessible> likely);

private:
    Task<SelectedItems> readSelection(Inquiry& inquiry, View view);
    Task<SelectedItems> readTable(Inquiry& inquiry, View view);
    Task<SelectedItems> readStates(Inquiry& inquiry, View view, std::vector<Accessible> likely);
    Task<SelectedItems> readStatus(Inquiry& inquiry);
    Task<std::vector<Accessible>> scan(Inquiry& inquiry, View view);
    Task<NamedItem> named(Inquiry& inquiry, Accessible item);
    static void vouchFor(const NamedItem& item, const View& view, Witnesses* witnesses);
    Task<NamedItem> namedInside(Inquiry& inquiry, NamedItem item);

    FileManager manager_;
    SharedLayout layout_;
    WindowFolder& folder_;
    DolphinWindow dolphin_;
};

}  // namespace pinorama
