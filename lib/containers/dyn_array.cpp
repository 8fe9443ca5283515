#include "lib/containers/dyn_array.h"

#include "base/block_holder.h"
#include "lib/containers/block_bytes.h"

#include <algorithm>
#include <cstring>

using namespace pinorama;

namespace {
std::uint8_t* itemAt(const DynArray* array, std::uint32_t index)
{
    return array->data + std::size_t{index} * array->itemSize;
}

// Grows the block to `capacity` items, in 64 bits because that may be more than a record can say.
// `needed` items are what the caller is about to use; they are fewer, except in an array whose
// count is above its allocated amount.
std::int16_t growTo(DynArray* array, std::uint64_t capacity, std::uint64_t needed)
{
    const std::uint64_t amount = std::max(capacity, needed);
    if (amount > UINT32_MAX) return kMemErrNoMemory;
    return memResizeMemory(array, static_cast<std::uint32_t>(amount));
}

// Ensures capacity for one more item. Returns `item`, or its new address if it lies in the block
// that has moved; null if memory runs out.
const void* growFor(DynArray* array, const void* item)
{
    const std::uint64_t blockSize = std::uint64_t{array->allocatedAmount} * array->itemSize;
    const bool own = liesInBlock(item, array->data, blockSize);
    const std::ptrdiff_t offset = own ? static_cast<const std::uint8_t*>(item) - array->data : 0;
    if (growTo(array, std::uint64_t{array->allocatedAmount} + kGrowthStep,
               std::uint64_t{array->itemCount} + 1) != 0)
        return nullptr;
    return own ? array->data + offset : item;
}

// Makes room for `n` items before item `index` and copies them in. There are enough free slots.
void insertItems(DynArray* array, std::uint32_t index, std::uint32_t n, const void* items)
{
    std::uint8_t* place = itemAt(array, index);
    const std::size_t inserted = std::size_t{n} * array->itemSize;
    const std::size_t following = std::size_t{array->itemCount - index} * array->itemSize;
    if (following > 0) std::memmove(place + inserted, place, following);
    if (inserted > 0) std::memcpy(place, items, inserted);
    array->itemCount += n;
}

// The items to insert, safe from the moves of the array's own block.
class StableItems {
public:
    // Takes a copy of the `byteCount` bytes at `items` when they lie in the block of `array`.
    StableItems(const DynArray* array, const void* items, std::uint64_t byteCount) : items_(items)
    {
        const std::uint64_t blockSize = std::uint64_t{array->allocatedAmount} * array->itemSize;
        if (!liesInBlock(items, array->data, blockSize)) return;
        copy_ = BlockHolder(baseAllocate(byteCount));
        items_ = copy_.get();
        if (copy_) std::memcpy(copy_.get(), items, byteCount);
        failed_ = !copy_;
    }

    // True when there was no memory for the copy.
    bool failed() const { return failed_; }
    const void* get() const { return items_; }

private:
    const void* items_;
    BlockHolder copy_;
    bool failed_ = false;
};
}  // namespace

std::int16_t memNewDynArray(DynArray* array, std::uint32_t itemSize, std::uint32_t capacity)
{
    memSetInvalid(array);
    DynArray created{itemSize, 0, 0, nullptr};
    if (memResizeMemory(&created, capacity) != 0) return kMemErrNoMemory;
    *array = created;
    return 0;
}

void memSetInvalid(DynArray* array)
{
    *array = DynArray{};
}

bool memValidDynArray(const DynArray* array)
{
    return array->allocatedAmount != 0 && array->data != nullptr;
}

std::int16_t memFreeDynArray(DynArray* array)
{
    if (!memValidDynArray(array)) return 0;
    baseFree(array->data);
    array->data = nullptr;
    array->allocatedAmount = 0;
    array->itemCount = 0;
    return 0;
}

std::int16_t memResizeMemory(DynArray* array, std::uint32_t newCapacity)
{
    if (!resizeBlock(&array->data, std::uint64_t{newCapacity} * array->itemSize, newCapacity == 0))
        return kMemErrNoMemory;
    array->allocatedAmount = newCapacity;
    return 0;
}

std::int16_t memShrinkToUsed(DynArray* array)
{
    return memResizeMemory(array, array->itemCount);
}

std::uint32_t memGetItemSize(const DynArray* array)
{
    return array->itemSize;
}

std::uint32_t memGetItemCount(const DynArray* array)
{
    return array->itemCount;
}

std::uint32_t memGetAllocatedAmount(const DynArray* array)
{
    return array->allocatedAmount;
}

std::int16_t memGetItemPtr(const DynArray* array, std::uint32_t index, void** outPtr)
{
    *outPtr = nullptr;
    if (index >= array->itemCount) return kMemErrNotFound;
    *outPtr = itemAt(array, index);
    return 0;
}

std::int16_t memCopyItemData(const DynArray* array, std::uint32_t index, void* dest)
{
    if (array->data == nullptr) return kMemErrNotFound;
    if (index >= array->itemCount) return kMemErrNotFound;
    if (array->itemSize >= 1) std::memcpy(dest, itemAt(array, index), array->itemSize);
    return 0;
}

std::uint32_t memGetItemID(const DynArray* array, std::uint32_t index)
{
    std::uint32_t id;
    std::memcpy(&id, itemAt(array, index), sizeof id);
    return id;
}

std::uint64_t memGetItemIDUInt64(const DynArray* array, std::uint32_t index)
{
    std::uint64_t id;
    std::memcpy(&id, itemAt(array, index), sizeof id);
    return id;
}

bool memSameData(const DynArray* array, std::uint32_t byteLength, const void* bytes)
{
    if (byteLength != std::uint64_t{array->itemSize} * array->itemCount) return false;
    return byteLength == 0 || std::memcmp(array->data, bytes, byteLength) == 0;
}

std::int16_t memAppendItem(DynArray* array, const void* item)
{
    const std::uint32_t count = array->itemCount;
    if (count >= array->allocatedAmount) {
        item = growFor(array, item);
        if (item == nullptr) return kMemErrNoMemory;
    }
    // The two places may be the same. An item of no bytes may have no place.
    if (array->itemSize > 0) std::memmove(itemAt(array, count), item, array->itemSize);
    array->itemCount = count + 1;
    return 0;
}

std::int16_t memInsertOneItem(DynArray* array, std::uint32_t index, const void* item)
{
    const std::uint32_t count = array->itemCount;
    if (index > count) return kMemErrBadPosition;

    const StableItems stable(array, item, array->itemSize);
    if (stable.failed()) return kMemErrNoMemory;
    if (count >= array->allocatedAmount) {
        if (growTo(array, std::uint64_t{array->allocatedAmount} + kGrowthStep,
                   std::uint64_t{count} + 1) != 0)
            return kMemErrNoMemory;
    }
    insertItems(array, index, 1, stable.get());
    return 0;
}

std::int16_t memInsertMoreItems(DynArray* array, std::uint32_t index, std::uint32_t n,
                                const void* items)
{
    if (index > array->itemCount) return kMemErrBadPosition;

    const StableItems stable(array, items, std::uint64_t{n} * array->itemSize);
    if (stable.failed()) return kMemErrNoMemory;
    // The array grows even if its capacity is exactly sufficient. Intended; pinned by
    // memInsertMoreItems.growsEvenIfTheCapacityIsExactlySufficient.
    const std::uint64_t needed = std::uint64_t{array->itemCount} + n;
    if (array->allocatedAmount <= needed) {
        if (growTo(array, std::uint64_t{array->allocatedAmount} + n + kGrowthStep, needed) != 0)
            return kMemErrNoMemory;
    }
    insertItems(array, index, n, stable.get());
    return 0;
}

std::int16_t memDeleteOneItem(DynArray* array, std::uint32_t index)
{
    if (index >= array->itemCount) return kMemErrNotFound;
    const std::size_t following = std::size_t{array->itemCount - index - 1} * array->itemSize;
    if (following > 0) std::memmove(itemAt(array, index), itemAt(array, index + 1), following);
    --array->itemCount;
    return 0;
}

std::int16_t memDeleteLastItem(DynArray* array)
{
    if (array->itemCount == 0) return kErrNothingUsable;
    --array->itemCount;
    return 0;
}

std::int16_t memDeleteAllItems(DynArray* array)
{
    array->itemCount = 0;
    return 0;
}

std::int16_t memMoveItemToNewIndex(DynArray* array, std::uint32_t from, std::uint32_t to)
{
    if (from == to) return 0;

    const BlockHolder scratch(baseAllocateZeroed(array->itemSize));
    if (!scratch) return kMemErrNoMemory;
    if (array->data == nullptr || from >= array->itemCount) return kMemErrNotFound;

    (void)memCopyItemData(array, from, scratch.get());
    (void)memDeleteOneItem(array, from);
    // A place beyond the shortened array fails, and the item is gone; pinned by
    // memMoveItemToNewIndex.anIndexBeyondTheShortenedArrayLosesTheItem.
    return memInsertOneItem(array, to, scratch.get());
}

std::int16_t memCopyDynArray(const DynArray* source, DynArray* dest)
{
    if (dest == nullptr) return kErrNothingUsable;
    if (dest->data == nullptr) {
        if (memNewDynArray(dest, source->itemSize, source->allocatedAmount) != 0)
            return kMemErrNoMemory;
    }
    if (dest->itemSize != source->itemSize) return kErrNothingUsable;

    if (dest->allocatedAmount != source->allocatedAmount) {
        // A block that could not be made smaller serves as well.
        if (memResizeMemory(dest, source->allocatedAmount) != 0 &&
            dest->allocatedAmount < source->allocatedAmount)
            return kMemErrNoMemory;
    }

    dest->itemCount = source->itemCount;
    // After memResizeMemory a count may be above what the block holds.
    const std::size_t bytes =
        std::size_t{std::min(source->itemCount, source->allocatedAmount)} * source->itemSize;
    if (bytes > 0) std::memmove(dest->data, source->data, bytes);
    return 0;
}
