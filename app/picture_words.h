// What the foot of the window says of the file that is shown, when that is not what people expect
// of a picture: why it could not be opened, or why there is no place. `name` is the file's, as it
// stands in a sentence (shownName).

#pragma once

#include "base/file_attributes.h"

#include <QString>

namespace pinorama {

// Says that an item is of a kind that is not read; empty for a picture.
//
//   isRead  whether files of its type are read.
QString wordsOfKind(const FileAttributes& item, const QString& name, bool isRead);

// Says why a file could not be opened: an errno.
QString wordsOfOpenError(int error, const QString& name);

// Says that the file was read and has no place.
QString wordsOfNoPlace();

// Says that several files are selected.
QString wordsOfSeveral();

}  // namespace pinorama
