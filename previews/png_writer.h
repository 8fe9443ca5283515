// Writes pictures as PNG files. The toolkit can do that too, but before it does it loads all its
// picture plug-ins to ask each of them.
// Source: PNG Specification, third edition (W3C).

#pragma once

#include <QByteArray>

#include <string>
#include <utility>
#include <vector>

class QImage;

namespace pinorama {

// Returns the whole file, 8 bits a channel, with an alpha channel when `image` has one; empty when
// `image` is null.
//
//   texts  pairs of a keyword, 1 to 79 characters, and its text, both Latin-1; kept as tEXt.
QByteArray cuMakePNG(const QImage& image,
                     const std::vector<std::pair<std::string, std::string>>& texts);

}  // namespace pinorama
