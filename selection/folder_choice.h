// Which folder a file manager's window shows, from what can be seen of it: the text of its location
// entry, the buttons of its path bar, its tabs and its title.

#pragma once

#include <QString>

#include <functional>
#include <string>
#include <vector>

namespace pinorama {

// A folder that goes by a name of its own, such as "Home", and is shown by this name in path bars.
struct Place {
    QString name;
    std::string path;  // absolute, raw bytes, no slash at the end
};

// A button in a row of buttons.
struct RowButton {
    QString name;
    bool isOn = false;  // a toggle that is down
};

struct FolderClues {
    QString title;                             // of the window
    std::vector<QString> locations;            // texts of location entries, tab tips, and the like
    std::vector<std::vector<RowButton>> rows;  // rows of buttons; one of them may be the path bar
};

// The folders that the window may show, the likeliest first: every path is absolute, in raw bytes,
// without a slash at its end, exists, and appears once.
//
// - A location is an absolute path, a path that begins with "~/", or a file: address.
// - A row of buttons is read from its left end and from its right end. It begins with the root
//   ("/", or a button without a name) or with one of `places`; a button that is down ends the path,
//   because path bars keep showing the way that the user came back from. A first button of an
//   unknown name may be any of the places, in a language that is not known here.
// - `isWatched` tells whether the file manager watches a folder for changes; those come first among
//   the folders found from one kind of clue. May be empty.
//
// Folders whose name is part of the title come before others of the same kind.
std::vector<std::string> foldersShown(const FolderClues& clues, const std::vector<Place>& places,
                                      const std::function<bool(const std::string&)>& isWatched);

}  // namespace pinorama
