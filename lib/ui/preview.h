// The picture that stands for a file in the window: a preview of its content, else the icon of its
// kind.

#pragma once

#include <QPixmap>
#include <QSizeF>

#include <cstdint>

#include "platform/objects/string.h"

// Makes the picture for the file at `path` and waits for it, 3 seconds at most.
//
//   path    absolute; null gives a null picture.
//   ofSize  points. A preview keeps the picture's aspect, fits into this size and is never larger
//           than the picture itself; an icon fills it. Made for the densest screen.
//   asIcon  nonzero puts a preview on a card of exactly `ofSize`, like the icon of a document.
//
// A thumbnail from the desktop's cache is taken when it is up to date; otherwise the file's content
// is read. A missing file, one without a preview and one that cannot be read have their icon. Null
// also for a size that is not positive, and when memory runs out for a preview that there is: the
// icon stands for files without one.
QPixmap imageWithPreviewOfFileAtPath(TovStringRef path, QSizeF ofSize, std::uint8_t asIcon);
