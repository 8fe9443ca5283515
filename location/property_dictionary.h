// The properties of a picture as the nested dictionaries that the library's getters read, and back.

#pragma once

#include "lib/objects/collections.h"
#include "pictures/picture_properties.h"

namespace pinorama {

// Returns a new dictionary of the properties, keyed by the names of property_keys.h: under
// kCGImagePropertyGPSDictionary and kCGImagePropertyIPTCDictionary, which are there when the
// picture has them, the values that are present (numbers as doubles, the altitude reference as an
// integer, texts). Null when memory runs out.
[[nodiscard]] TovDictionaryRef createPropertyDictionary(const PictureProperties& properties);

// The properties that such a dictionary holds; it may come from anywhere. What is missing, is of
// another kind or needs more memory than there is, is absent; null has none.
PictureProperties propertiesOfDictionary(TovDictionaryRef dictionary);

}  // namespace pinorama
