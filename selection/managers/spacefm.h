// SpaceFM, tried with 1.0 (GTK 2, on the accessibility bus only with a module).
//
// Window: up to four panels, each with tabs. Every tab has a location entry, a view and a status
// bar of its own.
//
// View: the list has the Table interface. The icons and the compact list are a panel without any
// object in it, directly in a scroll pane.
//
// Selection: the status bar has the name of the selected file at its end, and counts several:
// " 58 G free / 252 G   1 / 10 (4.0 K)   a.jpg"; some languages have no blank before the "1". Of a
// symbolic link it has the target instead. If the name or that target is not UTF-8, it is empty, as
// it also is before the window has been filled.
//
// Folder: the title of the window is the path of the folder in the panel that is in use, unless the
// user has given it another format. The entry of a tab has the path of that tab, or what the user
// is typing. A narrow panel does not show it.

#pragma once

#include <QString>

#include <sys/types.h>

#include <optional>
#include <string>
#include <vector>

#include "selection/manager_window.h"

namespace pinorama {

class SpaceFMWindow : public ManagerWindow {
public:
    using ManagerWindow::ManagerWindow;

    Opaqueness opaqueness(Role role, Role container) const override;

    Task<std::optional<std::vector<std::string>>> publishedFolders(DBusQuery& query,
                                                                   QString title) override;

    // Items have no path unless the title and the entry in the tab of the view name their folder.
    Task<SelectedItems> selectedItems(DBusQuery& query, ItemReader& reader, View view,
                                      std::vector<Accessible> likely) override;

private:
    Task<SelectedItems> readStatusBar(DBusQuery& query, ItemReader& reader, View view);
};

// The name in what the status bar says while one file is selected; nothing if it says anything
// else.
std::optional<QString> nameInStatusOfSpaceFM(const QString& status);

}  // namespace pinorama
