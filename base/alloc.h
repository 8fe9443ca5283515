// The one place where the library asks for memory, so that a test can make any single request fail.
// Sizes are bytes. Blocks are released with baseFree, never with free or delete.

#pragma once

#include <cstddef>
#include <cstdint>

namespace pinorama {

// Returns a block of `size` bytes whose content is undefined, or null when memory runs out.
// A size of 0 gives a valid block of its own, so null always means failure.
[[nodiscard]] void* baseAllocate(std::size_t size);

// The same, filled with zero bytes.
[[nodiscard]] void* baseAllocateZeroed(std::size_t size);

// Resizes `block` (null: allocates) to `size` bytes, which may move it. On failure null comes back
// and `block` stays as it is. A size of 0 keeps a valid block.
[[nodiscard]] void* baseReallocate(void* block, std::size_t size);

// Gives a block back; null is ignored.
void baseFree(void* block);

// For tests. Makes the `nth` request from now on fail once, counted from 1 over all three functions
// above; 0 lets every request through again.
void baseFailAllocation(std::uint64_t nth);

// For tests. True when the failure that baseFailAllocation planned has happened.
bool baseAllocationHasFailed();

}  // namespace pinorama
