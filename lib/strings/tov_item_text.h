// Texts that are kept as items of a variable-item array.

#pragma once

#include <cstdint>

#include "lib/containers/flex_dyn_array.h"
#include "lib/objects/string.h"

// Returns a new text of the item (itemID, itemType): MacRoman when `isUTF8` is 0, else decoded as
// TovStringFromUTF8 does, so that a byte-order mark stays and bytes that are not UTF-8 are
// MacRoman.
//
// Null when the array has no such item, and an item without data in last place counts as missing;
// also for a null array and if memory runs out.
[[nodiscard]] TovStringRef TovStringFromFlexDynArray(const FlexDynArray* array,
                                                     std::uint32_t itemID, std::uint32_t itemType,
                                                     std::uint8_t isUTF8);
