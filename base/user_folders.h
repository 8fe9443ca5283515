// The user's own folders: home, and those of the XDG Base Directory Specification 0.8 and of
// user-dirs.dirs(5). No path ends with a slash. What the environment gives as a relative path
// counts as unset; without a home folder a path that lies in it is empty.

#pragma once

#include <string>

#include <sys/types.h>

namespace pinorama {

// The home folder: HOME, else what the user database says; empty if neither has one.
std::string homeFolder();

std::string configFolder();  // XDG_CONFIG_HOME, else ~/.config
std::string dataFolder();    // XDG_DATA_HOME, else ~/.local/share
std::string cacheFolder();   // XDG_CACHE_HOME, else ~/.cache
std::string stateFolder();   // XDG_STATE_HOME, else ~/.local/state

// The desktop folder: XDG_DESKTOP_DIR of <config folder>/user-dirs.dirs, else ~/Desktop. It need
// not exist.
std::string desktopFolder();

// Makes a folder and the missing ones above it. True when the folder is there at the end; false
// with errno set.
bool makeFolders(const std::string& path, mode_t mode);

}  // namespace pinorama
