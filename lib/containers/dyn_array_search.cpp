#include "lib/containers/dyn_array_search.h"

#include <cstring>

namespace {
template <typename ID>
ID idOf(const std::uint8_t* item)
{
    ID id;
    std::memcpy(&id, item, sizeof id);
    return id;
}

template <typename ID>
std::int16_t findSorted(const DynArray* array, ID id, std::uint32_t* outIndex)
{
    if (array->itemCount == 0) return kErrNothingUsable;

    const std::uint8_t* const data = array->data;
    const std::size_t itemSize = array->itemSize;
    std::uint32_t low = 0;
    std::uint32_t high = array->itemCount - 1;
    while (low < high) {
        const std::uint32_t middle = low + (high - low) / 2;
        const ID found = idOf<ID>(data + middle * itemSize);
        if (found == id) {
            *outIndex = middle;
            return 0;
        }
        if (found < id) {
            low = middle + 1;
        } else {
            high = middle == 0 ? 0 : middle - 1;
        }
    }
    if (idOf<ID>(data + low * itemSize) == id) {
        *outIndex = low;
        return 0;
    }
    // One below the remaining index: a scan from here upward cannot miss the ID.
    *outIndex = low == 0 ? 0 : low - 1;
    return kMemErrNotFound;
}
}  // namespace

std::int16_t memWalkDynArray(const DynArray* array, void* refCon1, void* refCon2,
                             memWalkFn callback)
{
    if (array->itemCount == 0) return kErrNothingUsable;
    for (std::uint32_t i = 0; i < array->itemCount; ++i) {
        if (!callback(i, array->data + std::size_t{i} * array->itemSize, refCon1, refCon2)) break;
    }
    return 0;
}

std::int16_t memGetItemByUnsortedID(const DynArray* array, std::uint32_t id, void** outPtr)
{
    if (array->itemCount == 0) return kErrNothingUsable;

    const std::size_t itemSize = array->itemSize;
    std::uint8_t* item = array->data;
    for (std::uint32_t left = array->itemCount; left > 0; --left, item += itemSize) {
        if (idOf<std::uint32_t>(item) != id) continue;
        *outPtr = item;
        return 0;
    }
    *outPtr = nullptr;
    return kMemErrNotFound;
}

std::int16_t memGetItemIndexFromID(const DynArray* array, std::uint32_t id, std::uint32_t* outIndex)
{
    return findSorted(array, id, outIndex);
}

std::int16_t memGetItemBySortedID(const DynArray* array, std::uint32_t id, void** outPtr)
{
    *outPtr = nullptr;
    std::uint32_t index = 0;
    const std::int16_t status = findSorted(array, id, &index);
    if (status != 0) return status;
    return memGetItemPtr(array, index, outPtr);
}

std::int16_t memUInt64GetIndexFromSortedID(const DynArray* array, std::uint64_t id,
                                           std::uint32_t* outIndex)
{
    return findSorted(array, id, outIndex);
}

bool memUInt64SortedArrayHasID(const DynArray* array, std::uint64_t id)
{
    std::uint32_t index = 0;
    return findSorted(array, id, &index) == 0;
}
