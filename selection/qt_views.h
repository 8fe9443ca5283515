// What is selected in the views of Qt. Those of Qt 5 have no Selection interface, so that every
// item has to be asked for its state. Those of Qt 6 have one, beside a Table interface that reports
// no selected rows in some of them.

#pragma once

#include <vector>

#include "selection/accessible.h"
#include "selection/dbus_query.h"
#include "selection/frame_walk.h"
#include "selection/item_reader.h"
#include "selection/selected_items.h"

namespace pinorama {

constexpr std::size_t kMaxPendingCalls = 64;  // that wait for a reply at the same time
constexpr std::size_t kMaxScanned = 20000;    // items of a view that are asked one by one

// Reads a view with both interfaces: the rows, or the selection if there are none.
Task<SelectedItems> readRowsOrSelection(DBusQuery& query, ItemReader& reader, View view);

// Whether a view of Qt is showing. It has that state in every tab, its container only in the tab in
// front.
Task<bool> isQtViewShowing(DBusQuery& query, View view);

// The children of a view that report that they are selected, at most kMaxSelected, of every
// `step`-th child from the first on.
Task<std::vector<Accessible>> itemsThatReportSelected(DBusQuery& query, View view,
                                                      std::size_t step);

}  // namespace pinorama
