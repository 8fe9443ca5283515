// Finding, walking and checking the items of a variable-item array. Nothing here changes an array.

#pragma once

#include <cstdint>

#include "lib/containers/flex_dyn_array.h"

// Looks at one item; returns true to continue and false to stop. `data` points at the `itemSize`
// bytes of the item inside the block.
using memFlexWalkFn = bool (*)(std::uint32_t itemID, std::uint32_t itemType, std::uint32_t itemSize,
                               void* data, void* refCon);

constexpr std::int16_t kFlexErrOverrun = -403;    // an item that runs past the used bytes
constexpr std::int16_t kFlexErrEmptyItem = -404;  // an item of type 0 without data
constexpr std::int16_t kFlexErrDuplicate = -405;  // the same ID and type twice in a row

// Finds the header of the item (itemID, itemType), from the place that the index gives, if there is
// one. Items after the first larger ID are ignored.
// Returns 0 and the header's location; 22002 and 0xffffffff if there is none. An item without
// data at the very end (its header begins exactly 12 bytes before the end) is never found.
std::int16_t m2LookupFlexDataOffset(const FlexDynArray* flex, std::uint32_t itemID,
                                    std::uint32_t itemType, std::uint32_t* outLocation);

// Looks the item up, writes the full size of its data to `outSize` and copies as much of them as
// `bufferSize` allows to `buffer`, which may be null for a buffer size of 0.
// Returns 0; 22002 if there is no such item and 22003 when its data run past the used bytes, with
// nothing written.
std::int16_t memGetFlexData(const FlexDynArray* flex, std::uint32_t itemID, std::uint32_t itemType,
                            void* buffer, std::uint32_t* outSize, std::uint32_t bufferSize);

// Looks the item up and gives the size of its data and, unless `outDataPointer` is null, their
// address inside the block, borrowed until the next change. Statuses as above.
std::int16_t memGetFlexDataInfo(const FlexDynArray* flex, std::uint32_t itemID,
                                std::uint32_t itemType, std::uint32_t* outSize,
                                void** outDataPointer);

// Calls `callback` for each item in order until it returns false; `refCon` is passed through
// unchanged. Returns 0 at the end, when stopped and for an empty array; 22003 at an item with
// location + size above the used bytes. The header's 12 bytes do not count in that test, so that
// the callback of a damaged array may be given an item whose last bytes (up to 12) lie after the
// used ones.
std::int16_t memWalkFlexDynArray(const FlexDynArray* flex, void* refCon, memFlexWalkFn callback);

// Checks the layout item by item. Returns 0, or what is wrong with the first bad item, in this
// order: -405 when it has the ID and the type of the item before it, -404 when type and size are 0,
// -403 when location + size is above the used bytes.
// The first item is compared with ID 0 and type 0; and the first item of an ID that has more counts
// as one of type 0, so that an item of type 0 after it is a duplicate too.
std::int16_t memVerifyFlexDynArray(const FlexDynArray* flex);
