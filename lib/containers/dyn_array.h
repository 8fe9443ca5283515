// The growable array of fixed-size items: a record that the caller owns and one block of items
// that the record owns. This header makes, reads and changes arrays; dyn_array_search.h walks and
// searches them, dyn_array_sort.h sorts them, container_dump.h writes them to the debug log.
//
//     DynArray array;
//     if (memNewDynArray(&array, sizeof(Entry), 10) != 0) return kMemErrNoMemory;
//     const std::int16_t status = memAppendItem(&array, &entry);
//     void* first = nullptr;
//     if (status == 0 && memGetItemPtr(&array, 0, &first) == 0) use(first);
//     memFreeDynArray(&array);
//
// Counts, indexes and amounts are items; sizes are bytes. Items are opaque bytes except for the ID
// operations, which take the first 4 (or 8) bytes of an item as its ID, in native byte order.
// Every pointer into a block is borrowed until the next call that may move the block: append,
// insert, resize, shrink, copy into.
//
// The count never exceeds the allocated amount, with one exception: memResizeMemory leaves the
// count unchanged, and until the caller has lowered it, items beyond the block must not be
// accessed. A block holds at most 0xffffffff bytes, so that the 32-bit byte counts of the array
// files reach all of it; what would need more fails like a lack of memory.

#pragma once

#include <cstdint>

#include "base/status.h"

struct DynArray {
    std::uint32_t itemSize;         // bytes per item, fixed at creation
    std::uint32_t allocatedAmount;  // items that the block can hold
    std::uint32_t itemCount;        // items in use, 0 to itemCount - 1
    std::uint8_t* data;             // the items, back to back; null if nothing is allocated
};

constexpr std::uint32_t kGrowthStep = 40;  // items per growth

// Makes an array of `itemSize` bytes per item with a capacity of `capacity` items; the block is not
// cleared. The previous contents of the record are overwritten, not freed. A capacity of 0 succeeds
// without a block.
// Returns 0, or 22001 with a record of zeros.
[[nodiscard]] std::int16_t memNewDynArray(DynArray* array, std::uint32_t itemSize,
                                          std::uint32_t capacity);

// Zeroes all fields, the item size as well. Needed before the first use of a record that was not
// made by memNewDynArray; frees nothing. A record of zeros can be appended to as soon as its item
// size is set.
void memSetInvalid(DynArray* array);

// True when the record has a block: an allocated amount and a data pointer.
bool memValidDynArray(const DynArray* array);

// Frees the block of a valid array and zeroes everything but the item size. Returns 0 always.
std::int16_t memFreeDynArray(DynArray* array);

// Reallocates the block to `newCapacity` items. The count stays as it is even when it exceeds the
// new capacity: callers shrink the count themselves, before or after.
// Returns 0, or 22001 with the record unchanged.
[[nodiscard]] std::int16_t memResizeMemory(DynArray* array, std::uint32_t newCapacity);

// Reallocates the block to the items in use. Returns 0, or 22001 with the record unchanged.
std::int16_t memShrinkToUsed(DynArray* array);

// The three fields.
std::uint32_t memGetItemSize(const DynArray* array);
std::uint32_t memGetItemCount(const DynArray* array);
std::uint32_t memGetAllocatedAmount(const DynArray* array);

// The address of item `index`, borrowed. Returns 0, or 22002 and a null pointer if there is no
// such item.
std::int16_t memGetItemPtr(const DynArray* array, std::uint32_t index, void** outPtr);

// Copies item `index` to `dest`, which must have space for it.
// Returns 0, or 22002 if there is no block or no such item.
std::int16_t memCopyItemData(const DynArray* array, std::uint32_t index, void* dest);

// The ID of item `index`: its first 4 or 8 bytes. The index is not checked.
std::uint32_t memGetItemID(const DynArray* array, std::uint32_t index);
std::uint64_t memGetItemIDUInt64(const DynArray* array, std::uint32_t index);

// True when the items in use are `byteLength` bytes in all and equal `bytes`.
bool memSameData(const DynArray* array, std::uint32_t byteLength, const void* bytes);

// Appends a copy of `item`, which may lie in the array's own block. A full array grows by 40 items.
// Returns 0, or 22001 with the record unchanged.
[[nodiscard]] std::int16_t memAppendItem(DynArray* array, const void* item);

// Inserts a copy of `item` before item `index`; the count as index appends. The item may lie in the
// array's own block. A full array grows by 40 items.
// Returns 0, 22003 for an index beyond the count, 22001 with the record unchanged.
[[nodiscard]] std::int16_t memInsertOneItem(DynArray* array, std::uint32_t index, const void* item);

// Inserts copies of the `n` items at `items` before item `index`; they may lie in the array's own
// block. The array grows by n + 40 items unless it has capacity for more than n: it grows even if
// the capacity is exactly sufficient. Returns 0, 22003 for an index beyond the count, 22001 with
// the record unchanged.
[[nodiscard]] std::int16_t memInsertMoreItems(DynArray* array, std::uint32_t index, std::uint32_t n,
                                              const void* items);

// Deletes item `index`; the block is kept. Returns 0, or 22002 if there is no such item.
std::int16_t memDeleteOneItem(DynArray* array, std::uint32_t index);

// Deletes the last item; the block is kept. Returns 0, or -1 for an empty array.
std::int16_t memDeleteLastItem(DynArray* array);

// Sets the count to 0; the block is kept. Returns 0 always.
std::int16_t memDeleteAllItems(DynArray* array);

// Takes item `from` out and inserts it at `to`, an index in the array after the removal.
// Returns 0 (also, without any look at the array, for equal indexes), 22001 with the record
// unchanged, 22002 if there is no item `from`, and 22003 when `to` is beyond the count after the
// removal: the item stays removed then.
std::int16_t memMoveItemToNewIndex(DynArray* array, std::uint32_t from, std::uint32_t to);

// Makes `dest` a copy of `source` with the same allocated amount, up or down. A `dest` without a
// block is created; it must be a valid or invalidated record.
// Returns 0, -1 for a null `dest` or different item sizes, 22001 with `dest` unchanged (a `dest`
// without a block becomes a record of zeros).
[[nodiscard]] std::int16_t memCopyDynArray(const DynArray* source, DynArray* dest);
