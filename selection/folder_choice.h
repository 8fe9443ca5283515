// Works out which folder a file manager's window shows from what is visible of it: the text of its
// location entry, the buttons of its path bar, its tabs and its title.

#pragma once

#include <QString>

#include <functional>
#include <string>
#include <vector>

#include "selection/known_items.h"
#include "selection/named_folders.h"

namespace pinorama {

// A button in a row of buttons.
struct RowButton {
    QString name;
    bool isOn = false;  // a toggle button that is pressed
};

struct FolderHints {
    QString title;                             // of the window
    std::vector<QString> locations;            // texts of location entries, tool tips of tabs
    std::vector<std::vector<RowButton>> rows;  // rows of buttons; one of them may be the path bar
};

// The folders that the window may show, the likeliest first. Every path is absolute, in raw bytes,
// without a slash at its end, exists, and appears once.
//
// - A location is an absolute path, a path that begins with "~/", or a file: URI.
// - A row of buttons is read from its left end and from its right end. It begins with the root
//   ("/", or a button without a name) or with one of `namedFolders`. A pressed button ends the
//   path, because path bars keep the folders below the one that the user has gone back to. A first
//   button of an unknown name may be any of the named folders, in a language that this program does
//   not know.
// - `isWatched` says whether the file manager watches a folder for changes; watched folders come
//   first among those found from one kind of hint. May be empty.
//
// - The title alone, and a row that begins with an unknown name, are guesses. They count only if
//   `isWatched` confirms them.
//
// Folders whose name is part of the title come before all others of the same kind.
std::vector<std::string> foldersShown(KnownItems& items, const FolderHints& hints,
                                      const std::vector<NamedFolder>& namedFolders,
                                      const std::function<bool(const ItemFacts&)>& isWatched);

}  // namespace pinorama
