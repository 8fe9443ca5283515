// Chooses among a window's views of files: the one of the tab in front, or of the pane with the
// focus. Also finds out whether the views are still those that the walk found.

#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "selection/accessible.h"
#include "selection/dbus_query.h"
#include "selection/frame_walk.h"

namespace pinorama {

// Whether every view has the size that the walk found. Splitting a window or joining its panes
// changes the sizes. So does resizing it, which costs an unnecessary walk.
Task<bool> haveFoundSizes(DBusQuery& query, std::vector<View> views);

// The index of the pane that has the focus. If no view reports the focus, the pane that is or
// contains `touched`, the object of the last focus or selection event (may be null); otherwise
// `before`.
Task<std::size_t> paneInUse(DBusQuery& query, std::vector<View> views, Accessible touched,
                            std::size_t before);

// The index, among the views of all tabs of a GTK 4 window, of the one in front: the view whose
// container still has it as a child, or, in older versions of GTK 4, the one that contains the
// object at some point of the window. `before` if no object is found there; nothing if the tab in
// front has none of the views.
Task<std::optional<std::size_t>> viewInFront(DBusQuery& query, Accessible frame,
                                             std::vector<View> views, std::size_t before);

}  // namespace pinorama
