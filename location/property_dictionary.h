// The properties of a picture as the nested dictionaries that the library's getters read.

#pragma once

#include "lib/objects/collections.h"
#include "pictures/picture_properties.h"

namespace pinorama {

// Returns a new dictionary of the properties, keyed by the names of property_keys.h: under
// kCGImagePropertyGPSDictionary and kCGImagePropertyIPTCDictionary, which are there when the
// picture has them, the values that are present (numbers as doubles, the altitude reference as an
// integer, texts). Null when memory runs out.
[[nodiscard]] TovDictionaryRef createPropertyDictionary(const PictureProperties& properties);

}  // namespace pinorama
