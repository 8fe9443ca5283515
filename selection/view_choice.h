// Chooses among a window's views of files, which are those of its panes: the one with the focus.
// Also finds out whether the views are still those that the walk found.

#pragma once

#include <cstddef>
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

}  // namespace pinorama
