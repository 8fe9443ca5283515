// Where in a packet the names of its properties stand. Programs for raw files write hundreds of
// settings after what a picture says of itself, and looking names up is quicker than reading XML.

#pragma once

#include <cstddef>
#include <string_view>

namespace pinorama {

// Returns the length of a first part of `document`, a packet in UTF-8, in which all names of the
// properties begin that readXmp looks for: of exif:GPSLatitude and its kin, of cities, states,
// provinces and countries, and of descriptions. No tag after it has one. The part may be longer
// than it has to be, and other names like these count, too.
std::size_t endOfXmpNames(std::string_view document);

}  // namespace pinorama
