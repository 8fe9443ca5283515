// The folders of this user that go by names of their own, and the folders that a program watches.

#pragma once

#include <sys/types.h>

#include <functional>
#include <string>
#include <vector>

#include "selection/folder_choice.h"

namespace pinorama {

// The home folder, the well-known folders (desktop, pictures and so on), and the bookmarks of the
// file managers (GTK's "bookmarks", KDE's "user-places.xbel"), the home folder first. Reads at most
// 1 MiB of each file.
std::vector<Place> places();

// Tells of a folder whether the process watches it for changes (inotify, as /proc shows it). The
// state of the moment of the call; false for everything when it cannot be seen.
std::function<bool(const std::string&)> foldersWatchedBy(pid_t process);

}  // namespace pinorama
