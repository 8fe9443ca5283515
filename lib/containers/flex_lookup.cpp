#include "lib/containers/flex_lookup.h"

#include "lib/containers/dyn_array_search.h"
#include "lib/containers/flex_index.h"
#include "lib/containers/flex_item.h"

#include <algorithm>

namespace {
constexpr std::uint32_t kNoLocation = UINT32_MAX;

// The location of the nearest index entry at or before the items of `itemID`.
std::int16_t findStart(const FlexDynArray* flex, std::uint32_t itemID, std::uint32_t* outLocation)
{
    std::uint32_t position = 0;
    const std::int16_t status = memGetItemIndexFromID(&flex->index, itemID, &position);
    if (status != 0 && status != kMemErrNotFound) return status;
    if (position >= flex->index.itemCount) return kMemErrNotFound;

    FlexIndexEntry entry;
    std::memcpy(&entry, flex->index.data + std::size_t{position} * flex->index.itemSize,
                sizeof entry);
    *outLocation = entry.location;
    return 0;
}

// What the two getters below have in common: the header of an item whose data are all there.
std::int16_t findWholeItem(const FlexDynArray* flex, std::uint32_t itemID, std::uint32_t itemType,
                           FlexHeader* outHeader, std::uint8_t** outData)
{
    std::uint32_t location = 0;
    const std::int16_t status = m2LookupFlexDataOffset(flex, itemID, itemType, &location);
    if (status != 0) return status;

    const FlexHeader header = readFlexHeader(flex, location);
    if (nextFlexItem(location, header) > flex->usedBytes) return kMemErrBadPosition;
    *outHeader = header;
    *outData = flexItemData(flex, location);
    return 0;
}
}  // namespace

std::int16_t m2LookupFlexDataOffset(const FlexDynArray* flex, std::uint32_t itemID,
                                    std::uint32_t itemType, std::uint32_t* outLocation)
{
    *outLocation = kNoLocation;
    if (flex->allocatedBytes == 0 || flex->usedBytes == 0) return kMemErrNotFound;

    std::uint32_t start = 0;
    if (memHasFlexIndex(flex)) {
        const std::int16_t status = findStart(flex, itemID, &start);
        if (status != 0) return status;
    }

    // A header that begins exactly 12 bytes before the end is ignored. Intended; pinned by
    // m2LookupFlexDataOffset.neverFindsAnItemWithoutDataInLastPlace.
    for (std::uint64_t location = start; location + kFlexHeaderSize < flex->usedBytes;) {
        const FlexHeader header = readFlexHeader(flex, location);
        if (header.itemID == itemID && header.itemType == itemType) {
            *outLocation = static_cast<std::uint32_t>(location);
            return 0;
        }
        if (header.itemID > itemID) break;
        location = nextFlexItem(location, header);
    }
    return kMemErrNotFound;
}

std::int16_t memGetFlexData(const FlexDynArray* flex, std::uint32_t itemID, std::uint32_t itemType,
                            void* buffer, std::uint32_t* outSize, std::uint32_t bufferSize)
{
    FlexHeader header;
    std::uint8_t* data = nullptr;
    const std::int16_t status = findWholeItem(flex, itemID, itemType, &header, &data);
    if (status != 0) return status;

    *outSize = header.size;
    const std::uint32_t copied = std::min(header.size, bufferSize);
    if (copied > 0) std::memcpy(buffer, data, copied);
    return 0;
}

std::int16_t memGetFlexDataInfo(const FlexDynArray* flex, std::uint32_t itemID,
                                std::uint32_t itemType, std::uint32_t* outSize,
                                void** outDataPointer)
{
    FlexHeader header;
    std::uint8_t* data = nullptr;
    const std::int16_t status = findWholeItem(flex, itemID, itemType, &header, &data);
    if (status != 0) return status;

    *outSize = header.size;
    if (outDataPointer != nullptr) *outDataPointer = data;
    return 0;
}

std::int16_t memWalkFlexDynArray(const FlexDynArray* flex, void* refCon, memFlexWalkFn callback)
{
    std::uint64_t location = 0;
    while (hasFlexHeaderAt(flex, location)) {
        const FlexHeader header = readFlexHeader(flex, location);
        if (location + header.size > flex->usedBytes) return kMemErrBadPosition;
        if (!callback(header.itemID, header.itemType, header.size, flexItemData(flex, location),
                      refCon))
            return 0;
        location = nextFlexItem(location, header);
    }
    return 0;
}

std::int16_t memVerifyFlexDynArray(const FlexDynArray* flex)
{
    std::uint32_t previousID = 0;
    std::uint32_t previousType = 0;
    std::uint32_t typeInRun = 0;  // the previous type, but 0 after the first item of an ID
    std::uint64_t location = 0;
    while (hasFlexHeaderAt(flex, location)) {
        const FlexHeader header = readFlexHeader(flex, location);
        const bool sameID = header.itemID == previousID;
        if (sameID && (header.itemType == previousType || header.itemType == typeInRun))
            return kFlexErrDuplicate;
        if (header.itemType == 0 && header.size == 0) return kFlexErrEmptyItem;
        if (location + header.size > flex->usedBytes) return kFlexErrOverrun;

        typeInRun = sameID ? header.itemType : 0;
        previousType = header.itemType;
        previousID = header.itemID;
        location = nextFlexItem(location, header);
    }
    return 0;
}
