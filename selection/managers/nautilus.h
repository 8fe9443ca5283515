// Nautilus, tried with 43 (GTK 4.8), 48 (GTK 4.18) and 51 (GTK 4.24).
//
// View: the icons and the list have the Selection interface. Objects of items are made when
// somebody first asks for them. 43 keeps the views of all tabs and never says what is showing. In
// 48 the view of a tab that is not in front replies as before, but is no child of its container any
// more; an item that is scrolled out of view has no name.
//
// Name: in a label inside the item. 50 and later call the item "a.jpg. File" or "a.jpg. File.
// Starred", in the user's language, and the icons have no labels any more. A file may really have
// such a name: of two items that may be meant an icon has no path.
//
// Folder: published on the session bus, as the property OpenWindowsWithLocations of
// org.freedesktop.FileManager1, which holds the addresses of all tabs of each window. They are
// exact, unlike what the path bar shows, but the session bus and the accessibility bus have no name
// for a window in common, so the title decides which of them is meant.

#pragma once

#include <QString>

#include <sys/types.h>

#include <optional>
#include <string>
#include <vector>

#include "selection/known_items.h"
#include "selection/manager_window.h"

namespace pinorama {

class NautilusWindow : public ManagerWindow {
public:
    using ManagerWindow::ManagerWindow;

    std::vector<QString> namesWithin(const QString& told) const override;

    Task<std::optional<std::vector<std::string>>> publishedFolders(DBusQuery& query,
                                                                   QString title) override;

    Task<std::optional<std::size_t>> viewInUse(DBusQuery& query, Situation situation) override;
};

// The folders among these URIs, those of all tabs of all windows, that the window with this title
// may show (absolute paths in raw bytes, without a slash at the end). Empty if that window shows
// something else, such as the results of a search, or may do so.
std::vector<std::string> foldersOfWindow(KnownItems& items, const QString& title,
                                         const std::vector<QString>& uris);

}  // namespace pinorama
