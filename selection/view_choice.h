// Which of a window's views of files counts: the tab in front, the pane with the focus. And whether
// the views are still those that were found.

#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "selection/accessible.h"
#include "selection/dbus_inquiry.h"
#include "selection/frame_walk.h"

namespace pinorama {

// Whether every view has the size that it was found with. A window that is split or made one again
// gives its views another size. So does one that the user makes larger, which costs one walk.
Task<bool> haveFoundSizes(Inquiry& inquiry, std::vector<View> views);

// Of several panes the one that has the focus, or, where a view does not tell, the one that holds
// or is `touched`, in which something was focused or selected last (null for none). Otherwise
// `before`.
Task<std::size_t> paneInUse(Inquiry& inquiry, std::vector<View> views, Accessible touched,
                            std::size_t before);

// Of the views of all tabs the one in front: what is found at a point of the window belongs to it.
// `before` when nothing speaks against that; nothing when the tab in front has none of the views.
Task<std::optional<std::size_t>> viewInFront(Inquiry& inquiry, Accessible frame,
                                             std::vector<View> views, std::size_t before);

}  // namespace pinorama
