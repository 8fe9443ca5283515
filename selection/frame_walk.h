// Finds its way in a file manager's window: where the view of the files is, and what tells the
// folder. Every window is walked from its frame down, once, and what was found serves until the
// window changes its make-up.

#pragma once

#include <QString>

#include <memory>
#include <vector>

#include "selection/accessible.h"
#include "selection/dbus_inquiry.h"

namespace pinorama {

// How the selection of a view can be read.
enum class ViewAccess {
    selection,  // the Selection interface
    table,      // the Table interface of a GTK list beside a Selection interface
    states,     // no Selection interface: the states of the items
    opaque,     // no items at all; only the status bar tells
};

struct View {
    Accessible object;
    ViewAccess access = ViewAccess::opaque;
    Size size;
    int depth = 0;                       // steps from the frame
    std::vector<Accessible> above = {};  // the containers from the frame down to the view
    // The view, what is around it and what is in it: one of them has the focus when the view has.
    std::vector<Accessible> focusMarks = {};
};

// A button of a row that may be a path bar.
struct PathButton {
    Accessible object;
    Role role = Role::pushButton;
};

// A container of such rows, and how many children it had: a path bar grows and shrinks.
struct RowParent {
    Accessible object;
    std::uint32_t childCount = 0;
};

struct FrameLayout {
    std::vector<View> views;            // the files' view; with a split window one for each pane
    std::vector<Accessible> locations;  // location entries
    std::vector<std::vector<PathButton>> rows;  // rows of buttons of one kind
    std::vector<RowParent> rowParents;          // the containers that hold these rows
    std::vector<Accessible> statusTexts;        // what the status bar says
};

// Made once, and changed by nobody, so that who waits for an answer can go on holding it.
using SharedLayout = std::shared_ptr<const FrameLayout>;

// Walks one window. Asks at most `kMostObjects` objects, at most 64 of them at a time, so that the
// program stays usable meanwhile.
constexpr std::size_t kMostObjects = 2000;
Task<FrameLayout> walkFrame(Inquiry& inquiry, Accessible frame);

// GTK 4 names its objects after the application, all other kits after the bus. It does not tell
// what is showing, and keeps the views of all tabs.
bool isGtk4Object(const Accessible& object);

// Among everything that looks like a list of items, chooses the view of the files: the largest one,
// and with it the panes beside it, which lie equally deep and are two fifths as large at least.
// Side bars are smaller or lie elsewhere. A directory pane without items goes before every list.
std::vector<View> chooseViews(std::vector<View> candidates);

}  // namespace pinorama
