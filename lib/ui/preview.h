// The picture that stands for a file in a window: a preview of its content, else the icon of its
// kind.

#pragma once

#include <QPixmap>
#include <QSizeF>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "lib/objects/string.h"

// Makes the preview of the file at `path` (absolute, in the bytes of the system) within `ofSize`
// points at `ratio` device pixels per point; `asIcon` as below. Nothing when the file has no
// preview; a null picture if memory runs out for one that it has.
using PreviewService = std::function<std::optional<QPixmap>(const std::string& path, QSizeF ofSize,
                                                            qreal ratio, std::uint8_t asIcon)>;

// Names the service that makes previews from now on. A program does it while it starts: reading
// pictures is not this library's business, and without a service every file has its icon. An empty
// function takes the service away.
void cuInstallPreviewService(PreviewService service);

// Makes the picture for the file at `path` and waits for it.
//
//   path    absolute; null gives a null picture.
//   ofSize  points. A preview keeps the picture's aspect, fits into this size and is never larger
//           than the picture itself; an icon fills it. Made for the densest screen.
//   asIcon  nonzero puts a preview on a card of exactly `ofSize`, like the icon of a document.
//
// A missing file, one without a preview and one that cannot be read have their icon. Null also for
// a size that is not positive, and if memory runs out for a preview that there is: the icon
// stands for files without one.
QPixmap imageWithPreviewOfFileAtPath(TovStringRef path, QSizeF ofSize, std::uint8_t asIcon);
