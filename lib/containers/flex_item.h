// One item of a variable-item array in the block: a header of 12 bytes and its data, followed
// directly by the next header at any byte offset (docs/formats.md). Header fields are copied byte
// by byte because they are not aligned.
//
// Offsets are 64 bits wide: a damaged size field must not wrap round to a place inside the block.

#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "lib/containers/flex_dyn_array.h"

struct FlexHeader {
    std::uint32_t itemID;
    std::uint32_t size;  // data bytes after the header
    std::uint32_t itemType;
};

constexpr std::uint32_t kFlexHeaderSize = 12;
static_assert(sizeof(FlexHeader) == kFlexHeaderSize);

// True when a header fits between `location` and the end of the used bytes.
inline bool hasFlexHeaderAt(const FlexDynArray* flex, std::uint64_t location)
{
    return location + kFlexHeaderSize <= flex->usedBytes;
}

// Field by field: every scan waits for the size of one item to find the next, so the size is not to
// be picked out of a wider read first.
inline FlexHeader readFlexHeader(const FlexDynArray* flex, std::uint64_t location)
{
    const std::uint8_t* const place = flex->data + location;
    FlexHeader header;
    std::memcpy(&header.itemID, place, sizeof header.itemID);
    std::memcpy(&header.size, place + offsetof(FlexHeader, size), sizeof header.size);
    std::memcpy(&header.itemType, place + offsetof(FlexHeader, itemType), sizeof header.itemType);
    return header;
}

inline void writeFlexHeader(FlexDynArray* flex, std::uint64_t location, const FlexHeader& header)
{
    std::memcpy(flex->data + location, &header, sizeof header);
}

inline std::uint8_t* flexItemData(const FlexDynArray* flex, std::uint64_t location)
{
    return flex->data + location + kFlexHeaderSize;
}

inline std::uint64_t nextFlexItem(std::uint64_t location, const FlexHeader& header)
{
    return location + kFlexHeaderSize + header.size;
}
