#include "lib/containers/flex_dyn_array.h"

#include "base/block_holder.h"
#include "lib/containers/block_bytes.h"
#include "lib/containers/flex_index.h"
#include "lib/containers/flex_item.h"

#include <algorithm>
#include <cstring>

using namespace pinorama;

namespace {
constexpr std::uint32_t kChangeReserve = 4096;  // bytes on top of what a change needs

// Grows the block to `byteCount` bytes, in 64 bits because that may be more than a record can say.
// `needed` bytes are what the caller is about to use; they are fewer, except in an array whose
// used bytes are above its allocated ones.
std::int16_t growTo(FlexDynArray* flex, std::uint64_t byteCount, std::uint64_t needed)
{
    const std::uint64_t size = std::max(byteCount, needed);
    if (size > UINT32_MAX) return kMemErrNoMemory;
    return m2ResizeFlexDynArray(flex, static_cast<std::uint32_t>(size));
}

// Writes a whole item over the bytes at `location`. `data` may be anywhere.
void writeItem(FlexDynArray* flex, std::uint64_t location, const FlexHeader& header,
               const void* data)
{
    // The data first: they may lie where the header goes.
    if (header.size > 0) std::memmove(flexItemData(flex, location), data, header.size);
    writeFlexHeader(flex, location, header);
}

void moveBytes(FlexDynArray* flex, std::uint64_t from, std::uint64_t to)
{
    if (from < flex->usedBytes)
        std::memmove(flex->data + to, flex->data + from, flex->usedBytes - from);
}

std::int16_t replaceData(FlexDynArray* flex, std::uint64_t location, const FlexHeader& header,
                         const void* data)
{
    const std::uint64_t oldEnd = nextFlexItem(location, readFlexHeader(flex, location));
    const std::uint64_t newEnd = nextFlexItem(location, header);
    if (oldEnd > flex->usedBytes) return kMemErrBadPosition;

    const std::uint64_t used = flex->usedBytes - oldEnd + newEnd;
    if (newEnd > oldEnd && flex->allocatedBytes < used) {
        if (growTo(flex, flex->allocatedBytes + (newEnd - oldEnd) + kChangeReserve, used) != 0)
            return kMemErrNoMemory;
    }
    if (newEnd != oldEnd) moveBytes(flex, oldEnd, newEnd);
    writeItem(flex, location, header, data);
    flex->usedBytes = static_cast<std::uint32_t>(used);
    if (newEnd != oldEnd) m2RefreshFlexIndex(flex);
    return 0;
}

// `location` is at most the used bytes, where inserting is appending.
std::int16_t insertItem(FlexDynArray* flex, std::uint64_t location, const FlexHeader& header,
                        const void* data)
{
    const std::uint64_t added = std::uint64_t{header.size} + kFlexHeaderSize;
    const std::uint64_t used = flex->usedBytes + added;
    if (flex->allocatedBytes < used) {
        if (growTo(flex, flex->allocatedBytes + added + kChangeReserve, used) != 0)
            return kMemErrNoMemory;
    }
    moveBytes(flex, location, location + added);
    writeItem(flex, location, header, data);
    flex->usedBytes = static_cast<std::uint32_t>(used);
    m2RefreshFlexIndex(flex);
    return 0;
}
}  // namespace

std::int16_t memNewFlexDynArray(FlexDynArray* flex, std::uint32_t byteCount)
{
    memSetFlexInvalid(flex);
    return m2ResizeFlexDynArray(flex, byteCount);
}

void memSetFlexInvalid(FlexDynArray* flex)
{
    *flex = FlexDynArray{};
}

bool memValidFlexDynArray(const FlexDynArray* flex)
{
    return flex->allocatedBytes != 0 && flex->data != nullptr;
}

std::int16_t memFreeFlexDynArray(FlexDynArray* flex)
{
    if (memValidFlexDynArray(flex)) {
        baseFree(flex->data);
        flex->data = nullptr;
        flex->allocatedBytes = 0;
        flex->usedBytes = 0;
    }
    return memFreeDynArray(&flex->index);
}

std::int16_t m2ResizeFlexDynArray(FlexDynArray* flex, std::uint32_t byteCount)
{
    if (!resizeBlock(&flex->data, byteCount, byteCount == 0)) return kMemErrNoMemory;
    flex->allocatedBytes = byteCount;
    return 0;
}

std::int16_t memShrinkFlexToUsed(FlexDynArray* flex)
{
    return m2ResizeFlexDynArray(flex, flex->usedBytes);
}

std::uint32_t memGetFlexAllocatedAmount(const FlexDynArray* flex)
{
    return flex->allocatedBytes;
}

std::uint32_t memGetFlexCount(const FlexDynArray* flex)
{
    return flex->usedBytes;
}

std::int16_t memAddFlexDataAtEnd(FlexDynArray* flex, std::uint32_t itemID, std::uint32_t itemType,
                                 std::uint32_t size, const void* data)
{
    const std::uint64_t used = std::uint64_t{flex->usedBytes} + size + kFlexHeaderSize;
    if (flex->allocatedBytes <= used) {
        const bool own = liesInBlock(data, flex->data, flex->allocatedBytes);
        const std::ptrdiff_t offset = own ? static_cast<const std::uint8_t*>(data) - flex->data : 0;
        // The product is meant to wrap: from 341 MiB on a block grows by less than 12 %.
        const std::uint32_t share = flex->allocatedBytes * std::uint32_t{12} / 100;
        const std::uint64_t twice = std::uint64_t{size} * 2 + std::uint64_t{2} * kFlexHeaderSize;
        if (growTo(flex, flex->allocatedBytes + std::max<std::uint64_t>(share, twice), used) != 0)
            return kMemErrNoMemory;
        if (own) data = flex->data + offset;
    }
    writeItem(flex, flex->usedBytes, {itemID, size, itemType}, data);
    flex->usedBytes = static_cast<std::uint32_t>(used);
    return 0;
}

std::int16_t memChangeFlexData(FlexDynArray* flex, std::uint32_t itemID, std::uint32_t itemType,
                               std::uint32_t size, const void* data)
{
    BlockHolder copy;
    if (liesInBlock(data, flex->data, flex->allocatedBytes)) {
        copy = BlockHolder(baseAllocate(size));
        if (!copy) return kMemErrNoMemory;
        std::memcpy(copy.get(), data, size);
        data = copy.get();
    }

    const FlexHeader changed{itemID, size, itemType};
    std::uint64_t location = 0;
    while (hasFlexHeaderAt(flex, location)) {
        const FlexHeader header = readFlexHeader(flex, location);
        if (header.itemID == itemID && header.itemType == itemType)
            return replaceData(flex, location, changed, data);
        if (header.itemID > itemID) return insertItem(flex, location, changed, data);
        location = nextFlexItem(location, header);
    }
    return insertItem(flex, flex->usedBytes, changed, data);
}

std::int16_t memDeleteAllFlexItems(FlexDynArray* flex)
{
    flex->usedBytes = 0;
    (void)memRemoveFlexIndex(flex);  // there may be none
    return 0;
}
