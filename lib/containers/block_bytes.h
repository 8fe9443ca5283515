// What both containers do with the block that they own.

#pragma once

#include <cstdint>

#include "base/alloc.h"

// The longest block: what the 32-bit byte counts of the array files can name.
constexpr std::uint64_t kMaxBlockSize = UINT32_MAX;

// Resizes `*block` (null: allocates) to `byteCount` bytes. An `isEmpty` block is freed and becomes
// null: a container with a capacity of 0 holds no block that somebody would have to free.
// Returns false and changes nothing if memory runs out or `byteCount` is above kMaxBlockSize.
[[nodiscard]] inline bool resizeBlock(std::uint8_t** block, std::uint64_t byteCount, bool isEmpty)
{
    if (isEmpty) {
        pinorama::baseFree(*block);
        *block = nullptr;
        return true;
    }
    if (byteCount > kMaxBlockSize) return false;
    void* resized = pinorama::baseReallocate(*block, static_cast<std::size_t>(byteCount));
    if (resized == nullptr) return false;
    *block = static_cast<std::uint8_t*>(resized);
    return true;
}

// True when `bytes` points into the `blockSize` bytes at `block`. Such bytes move with the block,
// so a function that copies them into the same container has to check this first.
inline bool liesInBlock(const void* bytes, const std::uint8_t* block, std::uint64_t blockSize)
{
    const auto distance =
        reinterpret_cast<std::uintptr_t>(bytes) - reinterpret_cast<std::uintptr_t>(block);
    return block != nullptr && distance < blockSize;
}
