// Works on many items of a variable-item array at once: on all items of one ID, which are
// contiguous and called a run, or on all items of an array.

#pragma once

#include <cstdint>

#include "lib/containers/flex_dyn_array.h"

// Copies the first run of items with the ID `itemID`, headers included, into a new array. What
// `dest` held before is overwritten, not freed; its allocated bytes are the length of the run.
// Returns 0, 22002 with `dest` untouched if there is no such item, 22001 with `dest` zeroed.
[[nodiscard]] std::int16_t memExtractFlexItemsForSpecificID(const FlexDynArray* source,
                                                            std::uint32_t itemID,
                                                            FlexDynArray* dest);

// Sets every item of `source` in `dest` as memChangeFlexData does, under the ID `itemID` whatever
// its own ID is. The two arrays are different ones.
// Returns 0, or the status of the first item that failed, with the items before it set; 22003 at an
// item of `source` that runs past its used bytes.
[[nodiscard]] std::int16_t memReplaceFlexItemsForSpecificID(const FlexDynArray* source,
                                                            FlexDynArray* dest,
                                                            std::uint32_t itemID);

// Writes `newID` into every item; an index is rebuilt.
// Returns 0, or 22003 at an item whose location + size is more than 12 bytes above the used bytes,
// with the items before it changed.
std::int16_t memAdjustIDinFlexDynArray(FlexDynArray* flex, std::uint32_t newID);

// Appends the used bytes of `source` to `dest`, whatever the order of the IDs, and frees `source`,
// even if it is empty. Unless more than that is free, `dest` grows by exactly the used bytes of
// `source`. An index of `dest` is rebuilt. The two arrays must be different.
// Returns 0, or 22001 with both arrays unchanged.
[[nodiscard]] std::int16_t memAppendFlexDynArray(FlexDynArray* source, FlexDynArray* dest);

// Deletes the first run of items with the ID `itemID`; the block is kept, an index rebuilt.
// Returns 0, or 22002 if there is no such item.
std::int16_t memDeleteAllFlexData(FlexDynArray* flex, std::uint32_t itemID);
