// What is selected in a view of files, as a view with the Selection interface or a status bar
// reports it. Lists of rows are read in table_rows.h, the views of Qt in qt_views.h.

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "selection/accessible.h"
#include "selection/dbus_query.h"
#include "selection/frame_walk.h"
#include "selection/item_reader.h"
#include "selection/validator.h"

namespace pinorama {

constexpr std::size_t kMaxSelected = 64;  // items whose paths are reported

struct SelectedItems {
    bool isKnown = false;                  // false if the view did not reply
    std::vector<NamedItem> items;          // in the order of the view, at most kMaxSelected
    std::optional<std::string> path = {};  // of the only item, if the status bar named it
    Validators validators = {};            // of all replies that are cheap to get again
};

// Reads a view with the Selection interface. If its only item has no name, the status bar may have
// it.
Task<SelectedItems> readSelection(DBusQuery& query, ItemReader& reader, View view);

// Reads the status bar of the window.
Task<SelectedItems> readStatus(DBusQuery& query, ItemReader& reader);

// Whether `item` still has its name, and is still the selected one of `view`.
Validators validatorsOf(const NamedItem& item, const View& view);

// Whether a count is still the same.
Validator countValidator(const QDBusMessage& call, std::uint32_t count);

}  // namespace pinorama
