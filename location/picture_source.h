// Where the properties of a picture come from. Normally this process reads them itself; a program
// that does not want to touch a picture's bytes installs a source that has them read elsewhere.
// Who asks for properties does not know which.

#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "lib/objects/collections.h"
#include "pictures/picture_properties.h"

namespace pinorama {

// Sets the source for all later reads; an empty one brings back reading in this process. Called by
// a program while it starts, and by tests.
void installPropertySource(PropertySource source);

// Reads the properties of the picture at `path` (bytes as the system takes them; symbolic links
// are followed). Opening waits for nothing, also when the name belongs to a pipe or a device.
//
// Returns a new dictionary as of createPropertyDictionary, or null when the item is no regular
// file, no picture or cannot be read, or memory runs out.
[[nodiscard]] TovDictionaryRef copyPictureProperties(const std::string& path);

}  // namespace pinorama
