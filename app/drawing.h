// The program's own drawings, which are compiled in, in fixed sizes and as plain pixels. Before the
// toolkit reads a picture of any format it loads all its plug-ins and asks each of them; drawing
// the icons from SVG, or finding them in the theme, took a quarter of the instructions of a start.

#pragma once

#include <QIcon>
#include <QImage>

#include <initializer_list>

namespace pinorama {

// Reads a PAM file (Netpbm) of the kind RGB_ALPHA, 8 bits each. Null for anything else.
QImage readDrawing(const QString& file);

// An icon of the drawing `name` in the sizes that exist of it, in pixels.
QIcon drawnIcon(const QString& name, std::initializer_list<int> sizes);

}  // namespace pinorama
