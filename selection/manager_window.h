// How one window of a file manager is read. What this class does holds for most file managers; a
// class of each one in selection/managers overrides what that one does in its own way. The reader
// of a window (frame_reader.h) owns one, and calls its functions in this order:
//
//     co_await window->prepare(query, frame);                       // after each walk
//     const auto folders = co_await window->publishedFolders(query, title);
//     const auto place = co_await window->viewInUse(query, situation);
//     const SelectedItems items = co_await window->selectedItems(query, reader, view, likely);
//
// The rules of task.h hold for all of them.

#pragma once

#include <QString>

#include <sys/types.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "selection/dbus_query.h"
#include "selection/frame_walk.h"
#include "selection/item_reader.h"
#include "selection/selected_items.h"
#include "selection/window_folder.h"

namespace pinorama {

class ManagerWindow {
public:
    using OutlivesItsTasks = void;  // it is a part of the reader of the window

    explicit ManagerWindow(pid_t process) : process_(process) {}
    virtual ~ManagerWindow() = default;
    ManagerWindow(const ManagerWindow&) = delete;
    ManagerWindow& operator=(const ManagerWindow&) = delete;

    // Whether an object of this role, in a container of the other role, is a view that exposes none
    // of its items, so that only the status bar names the selected one.
    enum class Opaqueness { no, yes, ifEmpty };
    virtual Opaqueness opaqueness(Role role, Role container) const;

    // The names that an item may have that is called `told`, apart from that one, if it has no
    // parts that say its name: a file manager may add what it is.
    virtual std::vector<QString> namesWithin(const QString& told) const;

    // What the list of results of a search says about the folders of its items.
    virtual LocationColumn locationColumn() const { return LocationColumn::none; }

    // The window has been walked.
    virtual Task<Done> prepare(DBusQuery& query, Accessible frame);

    // The folders that the window with this title may show, as the file manager itself publishes
    // them; nothing if it does not. Absolute paths in raw bytes, without a slash at the end.
    virtual Task<std::optional<std::vector<std::string>>> publishedFolders(DBusQuery& query,
                                                                           QString title);

    struct Situation {
        Accessible frame;
        std::vector<View> views;  // all that the walk found, at least one
        Accessible touched;       // the object of the last focus or selection event, or null
        std::size_t before = 0;   // the last result
        bool hasChanged = true;   // whether the file manager reported a change since then
    };

    // The index of the view that counts: that of the pane with the focus, or of the tab in front.
    // Nothing if that is none of the views.
    virtual Task<std::optional<std::size_t>> viewInUse(DBusQuery& query, Situation situation);

    // What is selected in a view. `likely` are items that are probably selected; each may be null.
    virtual Task<SelectedItems> selectedItems(DBusQuery& query, ItemReader& reader, View view,
                                              std::vector<Accessible> likely);

protected:
    pid_t process() const { return process_; }

private:
    pid_t process_;
};

// For kinds without a class of their own, and without icons on the desktop.
std::unique_ptr<ManagerWindow> makeManagerWindow(pid_t process);
bool isNoDesktop(Role role, const QDBusMessage& attributes);

// Whether GTK 3 says that a window draws the icons of the desktop.
bool isDesktopOfGtk3(Role role, const QDBusMessage& attributes);

}  // namespace pinorama
