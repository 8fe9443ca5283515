// Krusader, tried with 2.8 (Qt 5) and 2.9 (Qt 6).
//
// Window: two panels side by side, each with one view and a row of tabs. Both are always shown.
//
// View: a tree with the Table interface, beside which those of Qt 6 have a selection. In 2.8 no
// state of an item says whether it is marked; the item at the cursor of each panel has the focus,
// also in the panel that is not in use. So the item at the cursor of the panel in use counts as
// selected, as it does for what Krusader does with a file when none is marked.
//
// Selection: the status bar of the window describes that item, "a.jpg  (142 B)  JPEG image" or
// "Pictures/  folder"; of a symbolic link "b.jpg -> a.jpg  JPEG image (Link)". "..", and the hint
// for a menu entry, have other texts.
//
// Folder: the tab that is in front of each panel has its path, or its address if it is not local,
// as its description. Each tab has a view of its own. Which of the panels is in use only the events
// say: the item at the cursor gets the focus, or its view when another panel comes into use. The
// status bar changes a moment earlier.

#pragma once

#include <QString>

#include <sys/types.h>

#include <optional>
#include <string>
#include <vector>

#include "selection/manager_window.h"

namespace pinorama {

class KrusaderWindow : public ManagerWindow {
public:
    using ManagerWindow::ManagerWindow;

    // None: selectedItems() finds the folder.
    Task<std::optional<std::vector<std::string>>> publishedFolders(DBusQuery& query,
                                                                   QString title) override;

    Task<std::optional<std::size_t>> viewInUse(DBusQuery& query, Situation situation) override;

    // The item at the cursor has no path unless it is clear in which panel it is: the item that got
    // the focus last has its name, or no other panel has an item of that name.
    Task<SelectedItems> selectedItems(DBusQuery& query, ItemReader& reader, View view,
                                      std::vector<Accessible> likely) override;

private:
    struct Panel {
        Accessible object;
        Accessible tabs;
    };
    struct Folders {
        std::vector<std::string> ofPanels = {};  // empty for one that is not local
        Validators validators = {};
    };

    static Task<Panel> panelAt(DBusQuery& query, Accessible object);
    static Task<std::vector<Panel>> findPanels(DBusQuery& query, View view);
    static Task<Accessible> itemAtCursor(DBusQuery& query, View view);
    static Task<Folders> readFolders(DBusQuery& query, std::vector<Panel> panels);
    static Task<std::optional<std::size_t>> panelWithFocus(DBusQuery& query, SharedLayout layout,
                                                           std::vector<Panel> panels,
                                                           Accessible item,
                                                           std::vector<QString> names);

    std::vector<Panel> panels_;
    SharedLayout foundIn_;  // in which they were found
};

// The names that the item may have of which the status bar says this; empty if it says nothing of
// an item.
std::vector<QString> namesInStatusOfKrusader(const QString& status);

}  // namespace pinorama
