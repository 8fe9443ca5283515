// Folders that file managers show by a name other than that of the folder, such as "Home": the
// entries of their side bars and the first buttons of their path bars.

#pragma once

#include <QString>

#include <string>
#include <vector>

namespace pinorama {

struct NamedFolder {
    QString name;
    std::string path;  // absolute, raw bytes, no slash at the end
};

// The named folders of this user: the home folder first, then the well-known folders (desktop,
// pictures and so on), then the bookmarks of the file managers (GTK's "bookmarks", KDE's
// "user-places.xbel"). A folder may appear more than once, under different names. Reads at most 1
// MiB of each file.
std::vector<NamedFolder> namedFolders();

}  // namespace pinorama
