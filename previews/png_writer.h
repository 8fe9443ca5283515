// Pictures as PNG files, written by libpng. Qt can write them too, but it first loads all its image
// plug-ins to ask each of them.

#pragma once

#include <QByteArray>

#include <string>
#include <utility>
#include <vector>

class QImage;

namespace pinorama {

// Returns the whole file, 8 bits a channel, with an alpha channel if `image` has one; empty if
// `image` is null, has more than a million pixels in a row or column, or if memory runs out.
//
//   texts  pairs of a keyword, 1 to 79 characters, and its text, both Latin-1; kept as tEXt.
QByteArray cuMakePNG(const QImage& image,
                     const std::vector<std::pair<std::string, std::string>>& texts);

}  // namespace pinorama
