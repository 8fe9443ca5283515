// The folders that a program watches for changes. A file manager watches the folders that it shows,
// which helps to choose between two of the same name.

#pragma once

#include <sys/types.h>

#include <functional>

#include "opener/item_facts.h"

namespace pinorama {

// Returns a function that says whether the process watched a folder with inotify, as /proc shows
// it, at the time of this call. It returns false for every folder if the process has ended or
// belongs to another user.
std::function<bool(const ItemFacts&)> foldersWatchedBy(pid_t process);

}  // namespace pinorama
