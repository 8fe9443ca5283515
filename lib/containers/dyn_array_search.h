// Walking a dynamic array and finding items in it by their ID. Nothing here changes an array; what
// is found is an index or a pointer into the block, never a copy.

#pragma once

#include <cstdint>

#include "lib/containers/dyn_array.h"

// Looks at one item; returns true to continue and false to stop.
using memWalkFn = bool (*)(std::uint32_t index, void* item, void* refCon1, void* refCon2);

// Calls `callback` for each item from index 0 upward until it returns false. The two refCons are
// passed through unchanged. Returns 0, or -1 for an empty array.
std::int16_t memWalkDynArray(const DynArray* array, void* refCon1, void* refCon2,
                             memWalkFn callback);

// Finds the first item with the 32-bit ID `id`, whatever the order of the items.
// Returns 0 and the item's address; 22002 and a null pointer if there is none; -1 for an empty
// array, with *outPtr left alone.
std::int16_t memGetItemByUnsortedID(const DynArray* array, std::uint32_t id, void** outPtr);

// Finds the index of the item with the 32-bit ID `id` in an array sorted ascending by ID (as
// unsigned numbers). Among equal IDs it is the first that the binary search meets.
// Returns 0; 22002 if there is none, with *outIndex at or before the place where the ID would
// belong (one below it, but never below 0), from where a scan ahead is safe; -1 for an empty array,
// with *outIndex left alone.
std::int16_t memGetItemIndexFromID(const DynArray* array, std::uint32_t id,
                                   std::uint32_t* outIndex);

// The same search giving the item's address; null unless the status is 0.
std::int16_t memGetItemBySortedID(const DynArray* array, std::uint32_t id, void** outPtr);

// memGetItemIndexFromID for an array sorted by 64-bit IDs.
std::int16_t memUInt64GetIndexFromSortedID(const DynArray* array, std::uint64_t id,
                                           std::uint32_t* outIndex);

// True when an array sorted by 64-bit IDs has an item with the ID `id`.
bool memUInt64SortedArrayHasID(const DynArray* array, std::uint64_t id);
