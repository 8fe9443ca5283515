// The variable-item array: data items of any length in one block, each after a header that names
// it by an item ID and an item type, and an optional index from IDs to places in the block. This
// header makes arrays and changes single items; flex_lookup.h finds, walks and checks, flex_runs.h
// works on all items of an ID or of an array, flex_index.h builds the index, container_dump.h
// writes arrays to the debug log.
//
//     FlexDynArray flex;
//     if (memNewFlexDynArray(&flex, 0) != 0) return kMemErrNoMemory;
//     const std::int16_t status = memChangeFlexData(&flex, itemID, itemType, size, data);
//     void* stored = nullptr;
//     if (status == 0 && memGetFlexDataInfo(&flex, itemID, itemType, &size, &stored) == 0)
//     use(stored); memFreeFlexDynArray(&flex);
//
// Sizes, locations and totals are bytes. A location is the offset of an item's header from the
// start of the block. Items are ordered by ascending item ID (unsigned) and a pair of ID and type
// occurs once; the functions that insert keep it so, those that append leave it to the caller.
// Pointers into the block are borrowed until the next change.
//
// Layout of headers and data: docs/formats.md, "Array files".

#pragma once

#include <cstdint>

#include "base/status.h"
#include "lib/containers/dyn_array.h"

struct FlexDynArray {
    std::uint32_t allocatedBytes;  // size of the block
    std::uint32_t usedBytes;       // bytes in use from the start of the block
    std::uint8_t* data;            // the block; null if nothing is allocated
    DynArray index;                // FlexIndexEntry items in ascending ID order, or empty
};

// Makes an array with a block of `byteCount` bytes, not cleared, and no index. What the record held
// before is overwritten, not freed. 0 bytes succeed without a block.
// Returns 0, or 22001 with a record of zeros.
[[nodiscard]] std::int16_t memNewFlexDynArray(FlexDynArray* flex, std::uint32_t byteCount);

// Zeroes all fields. Frees nothing. A record of zeros is an empty array that can be added to.
void memSetFlexInvalid(FlexDynArray* flex);

// True when the record has a block: allocated bytes and a data pointer.
bool memValidFlexDynArray(const FlexDynArray* flex);

// Frees the block and the index block, whichever are there. Returns 0 always.
std::int16_t memFreeFlexDynArray(FlexDynArray* flex);

// Reallocates the block to `byteCount` bytes. The used bytes stay as they are, so that callers
// lower them first. Returns 0, or 22001 with the record unchanged.
[[nodiscard]] std::int16_t m2ResizeFlexDynArray(FlexDynArray* flex, std::uint32_t byteCount);

// Reallocates the block to the used bytes. Returns 0, or 22001 with the record unchanged.
std::int16_t memShrinkFlexToUsed(FlexDynArray* flex);

// The size of the block in bytes.
std::uint32_t memGetFlexAllocatedAmount(const FlexDynArray* flex);

// The used bytes; in spite of the name not a number of items.
std::uint32_t memGetFlexCount(const FlexDynArray* flex);

// Appends an item after the last one, whatever the order of the IDs. `data` may lie in the array's
// own block; it may be null for a size of 0. The index is not rebuilt.
// The block grows unless more than size + 12 bytes are free: by 12 % of its size (product and
// quotient in 32 bits, so beyond 357913941 bytes the product wraps) or by size * 2 + 24 bytes,
// whichever is more.
// Returns 0, or 22001 with the array unchanged.
[[nodiscard]] std::int16_t memAddFlexDataAtEnd(FlexDynArray* flex, std::uint32_t itemID,
                                               std::uint32_t itemType, std::uint32_t size,
                                               const void* data);

// Sets the data of the item (itemID, itemType): replaces them if the item exists, else inserts the
// item before the first larger ID, which is after all items of its own ID. `data` may lie in the
// array's own block; it may be null for a size of 0. If the block is too small, it grows by the
// bytes that the change adds plus 4096. An index is rebuilt unless an item was replaced with data
// of the same size.
// Returns 0, 22001 with the array unchanged, 22003 with the array unchanged when the item to
// replace runs past the used bytes.
[[nodiscard]] std::int16_t memChangeFlexData(FlexDynArray* flex, std::uint32_t itemID,
                                             std::uint32_t itemType, std::uint32_t size,
                                             const void* data);

// Sets the used bytes to 0, keeps the block and drops the index. Returns 0 always.
std::int16_t memDeleteAllFlexItems(FlexDynArray* flex);
