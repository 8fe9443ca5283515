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
        // Which half goes on is a coin toss that no processor foresees, so both ends are computed
        // without a jump.
        const ID found = idOf<ID>(data + middle * itemSize);
        if (found == id) {
            *outIndex = middle;
            return 0;
        }
        const std::uint32_t goesUp = found < id ? UINT32_MAX : 0;
        const std::uint32_t below = middle == 0 ? 0 : middle - 1;
        low += (middle + 1 - low) & goesUp;
        high = below + ((high - below) & goesUp);
    }
    if (idOf<ID>(data + low * itemSize) == id) {
        *outIndex = low;
        return 0;
    }
    // One below the place that is left: whoever scans ahead from here cannot miss the ID.
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
    std::uint32_t left = array->itemCount;
    const auto hasID = [id](const std::uint8_t* bytes) {
        return static_cast<int>(idOf<std::uint32_t>(bytes) == id);
    };
    // Four at a time, with one jump for all of them.
    for (; left >= 4; left -= 4, item += 4 * itemSize) {
        if ((hasID(item) | hasID(item + itemSize) | hasID(item + 2 * itemSize) |
             hasID(item + 3 * itemSize)) != 0)
            break;
    }
    for (; left > 0; --left, item += itemSize) {
        if (hasID(item) == 0) continue;
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
