// The paths of items that a file manager shows.

#pragma once

#include <QString>

#include <optional>
#include <string>
#include <vector>

#include "selection/dbus_query.h"
#include "selection/known_items.h"

namespace pinorama {

// The path of the item of `folder` (an absolute path in raw bytes) that is shown as `shown`, by the
// rules of shown_name.h. The path of a folder ends in a slash; so does that of a symbolic link to a
// folder. The names in the folder are read only if no item has exactly this name.
std::optional<std::string> pathOfShownItem(KnownItems& items, const std::string& folder,
                                           const QString& shown);

// The path of an item, with a slash at its end if it is a folder or a link to one; nothing if there
// is no such item. Slashes at the end of `path` are ignored.
std::optional<std::string> existingItem(KnownItems& items, std::string path);

// The same for several items. Nothing if one of them is gone: the others alone would be a selection
// that nobody made.
Task<std::optional<std::vector<std::string>>> existingItems(DBusQuery& query,
                                                            std::vector<std::string> paths);

}  // namespace pinorama
