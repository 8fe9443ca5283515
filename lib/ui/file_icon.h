// The icon that stands for a file's kind.

#pragma once

#include <QPixmap>
#include <QSizeF>

#include <cstdint>
#include <string>

// Returns the icon theme's icon for the kind of item at `path` (bytes as the system takes them): a
// folder, a device, or a file of the type that its name indicates; its content is never read. A
// missing item has the icon of its name, too.
//
//   size   points; the icon fills it as far as a square can.
//   ratio  device pixels per point.
//
// The result is exactly `size` large and never empty: where the theme has no icon a sheet of paper
// is drawn. Null only for a size that is not positive.
QPixmap cuIconOfItem(const std::string& path, QSizeF size, qreal ratio);

// The same for an item that has been looked at already: nothing is asked of its disk.
//
//   type  the bits S_IFMT of its mode, as stat(2) gives them; 0 if there is no such item.
QPixmap cuIconOfType(const std::string& path, std::uint32_t type, QSizeF size, qreal ratio);
