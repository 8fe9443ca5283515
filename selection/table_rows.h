// What is selected in a list: a view whose rows the Table interface exposes. A list knows more of
// its items than their names: the row above one in a tree, and cells beside the name.

#pragma once

#include "selection/dbus_query.h"
#include "selection/frame_walk.h"
#include "selection/item_reader.h"
#include "selection/selected_items.h"

namespace pinorama {

// Reads the selected rows. An item below another one in a tree is in the folder of that one, and a
// result of a search in the folder that another of its cells names; if that is not to be found out,
// the item has no path.
Task<SelectedItems> readTable(DBusQuery& query, ItemReader& reader, View view);

}  // namespace pinorama
