// Walks the tree of objects in a file manager's window, breadth first, to find the view of the
// files and everything that shows the folder. A window is walked once; the layout is valid until
// the structure of the window changes.
//
//     FrameLayout layout = co_await walkFrame(query, frame, window);
//     if (layout.views.empty()) co_return {};  // no window that shows files

#pragma once

#include <QString>

#include <memory>
#include <vector>

#include "selection/accessible.h"
#include "selection/dbus_query.h"

namespace pinorama {

class ManagerWindow;

// How the selection of a view can be read.
enum class ViewAccess {
    selection,  // the Selection interface
    table,      // the Table interface of a GTK list beside a Selection interface
    states,     // no Selection interface: the states of the items
    opaque,     // no items at all, only a status bar
};

struct View {
    Accessible object;
    ViewAccess access = ViewAccess::opaque;
    Size size;
    int depth = 0;                           // steps from the frame
    std::vector<Accessible> ancestors = {};  // the containers from the frame down to the view
    // The view, its nearest ancestors or its contents: if the view has the focus, one of them
    // reports it.
    std::vector<Accessible> focusIndicators = {};
    Accessible tab = {};        // the innermost tab in which it is, or null
    Accessible location = {};   // the location entry in that tab, or null
    Accessible statusBar = {};  // the status bar in that tab, or null
};

// A button in a row that may be a path bar.
struct PathButton {
    Accessible object;
    Role role = Role::pushButton;
};

// A container of such rows, and the number of its children, which changes with a path bar's length.
struct RowParent {
    Accessible object;
    std::uint32_t childCount = 0;
};

struct FrameLayout {
    std::vector<View> views;                    // of the files; in a split window one for each pane
    std::vector<Accessible> locations;          // location entries
    std::vector<std::vector<PathButton>> rows;  // rows of buttons of one kind
    std::vector<RowParent> rowParents;          // the containers that hold these rows
    std::vector<Accessible> statusTexts;        // the status bar and its labels
};

// Immutable, so that a coroutine can use it across a co_await while the window gets another layout.
using SharedLayout = std::shared_ptr<const FrameLayout>;

// Walks one window. Visits at most `kMaxObjects` objects, with at most 64 calls in flight, so that
// the file manager stays responsive.
constexpr std::size_t kMaxObjects = 2000;
Task<FrameLayout> walkFrame(DBusQuery& query, Accessible frame, ManagerWindow& window);

// Whether an object belongs to GTK 4, whose object paths begin with the name of the application;
// the other toolkits' begin with /org/a11y/. Older versions of GTK 4 do not report what is showing.
bool isGtk4Object(const Accessible& object);

// Chooses the view of the files among everything that looks like a list of items: the largest, and
// with it its neighbour panes, which have the same depth and at least two fifths of its area. Side
// bars are smaller or have another depth. A directory pane without items wins over every list. If a
// tab has a location entry of its own, each tab shows one folder: then the largest view of each tab
// is chosen, whatever is in the others.
std::vector<View> chooseViews(std::vector<View> candidates);

}  // namespace pinorama
