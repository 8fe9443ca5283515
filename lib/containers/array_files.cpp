#include "lib/containers/array_files.h"

#include "lib/containers/flex_item.h"
#include "lib/files/fork_io.h"

namespace {
constexpr std::uint8_t kNativeNow = 1;

// The size of the items in use in bytes; that of a block always fits 32 bits.
std::uint32_t usedBytesOf(const DynArray* array)
{
    return array->itemCount * array->itemSize;
}

// True when `byteCount` bytes at `offset` end at or before the end of a file of `size` bytes. An
// offset before the start of the file passes here and fails when it is read.
bool endsInFile(std::int64_t offset, std::uint32_t byteCount, std::int64_t size)
{
    return offset <= size - std::int64_t{byteCount};
}

std::uint32_t swapped(std::uint32_t value)
{
    return __builtin_bswap32(value);
}
}  // namespace

std::int16_t memAppendFileContentsMMIO(ForkRef refNum, const DynArray* array)
{
    return static_cast<std::int16_t>(feAppendToFile(refNum, usedBytesOf(array), array->data));
}

std::int16_t memWriteToFileContentsMMIO(ForkRef refNum, const DynArray* array, std::int64_t offset)
{
    return static_cast<std::int16_t>(
        feWriteToFile(refNum, offset, usedBytesOf(array), array->data));
}

std::int16_t memGetFileContentsMMIO(ForkRef refNum, std::int64_t offset, std::uint32_t itemCount,
                                    std::uint32_t itemSize, DynArray* array)
{
    std::int64_t size = 0;
    (void)feGetEOF(refNum, &size);  // no length is a length of 0
    const std::uint64_t wanted = std::uint64_t{itemCount} * itemSize;
    if (wanted > UINT32_MAX) return kErrNothingUsable;
    const auto byteCount = static_cast<std::uint32_t>(wanted);
    if (!endsInFile(offset, byteCount, size)) return kErrNothingUsable;

    if (memNewDynArray(array, itemSize, itemCount) != 0) return kMemErrNoMemory;
    const std::int32_t status = feReadFromFile(refNum, offset, byteCount, array->data);
    if (status != kErrNone) {
        memFreeDynArray(array);
        return static_cast<std::int16_t>(status);
    }
    array->itemCount = itemCount;
    return kErrNone;
}

std::int16_t memAppendFlexArrayToFileMMIO(ForkRef refNum, const FlexDynArray* flex)
{
    return static_cast<std::int16_t>(feAppendToFile(refNum, flex->usedBytes, flex->data));
}

std::int16_t memWriteFlexArrayToFileMMIO(ForkRef refNum, const FlexDynArray* flex,
                                         std::int64_t offset)
{
    return static_cast<std::int16_t>(feWriteToFile(refNum, offset, flex->usedBytes, flex->data));
}

std::int16_t memGetFileContentsFlexMMIO(ForkRef refNum, std::int64_t offset,
                                        std::uint32_t byteCount, FlexDynArray* flex)
{
    std::int64_t size = 0;
    std::int32_t status = feGetEOF(refNum, &size);
    if (status != kErrNone) return static_cast<std::int16_t>(status);
    if (!endsInFile(offset, byteCount, size)) return kErrNothingUsable;

    const std::int16_t made = memNewFlexDynArray(flex, byteCount);
    if (made != 0) return made;
    status = feReadFromFile(refNum, offset, byteCount, flex->data);
    if (status != kErrNone) {
        memFreeFlexDynArray(flex);
        return static_cast<std::int16_t>(status);
    }
    flex->usedBytes = byteCount;
    return kErrNone;
}

std::int16_t memEndianConvertFlexDynArray(FlexDynArray* flex, std::uint8_t direction)
{
    std::uint64_t location = 0;
    while (hasFlexHeaderAt(flex, location)) {
        const FlexHeader before = readFlexHeader(flex, location);
        const FlexHeader after = {swapped(before.itemID), swapped(before.size),
                                  swapped(before.itemType)};
        const FlexHeader& native = direction == kNativeNow ? before : after;
        if (location + native.size > std::uint64_t{flex->usedBytes} + kFlexHeaderSize) {
            return kMemErrBadPosition;
        }
        writeFlexHeader(flex, location, after);
        location = nextFlexItem(location, native);
    }
    return kErrNone;
}
