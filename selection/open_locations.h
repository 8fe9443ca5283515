// The folders that Nautilus shows, as it publishes them on the session bus: the property
// OpenWindowsWithLocations of org.freedesktop.FileManager1, which holds the addresses of all tabs
// of each window. They are exact, unlike what its path bar shows, but the bus and the accessibility
// bus have no name for a window in common, so the title decides which of them is meant.

#pragma once

#include <QString>

#include <sys/types.h>

#include <optional>
#include <string>
#include <vector>

#include "selection/dbus_query.h"

namespace pinorama {

// The URIs of the folders in all tabs of all windows of a process. Nothing if that process does not
// publish them: another program is the one that shows folders in this session, or it is too old.
Task<std::optional<std::vector<QString>>> openLocations(DBusQuery& query, pid_t process);

// The folders among them (absolute paths in raw bytes, without a slash at the end) that the window
// with this title may show. Empty if that window shows something else, such as the results of a
// search, or may do so.
std::vector<std::string> foldersOfWindow(const QString& title, const std::vector<QString>& uris);

}  // namespace pinorama
