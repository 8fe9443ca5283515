#include "base/alloc.h"

#include <cstdlib>

namespace pinorama {
namespace {
std::uint64_t gRequestsUntilFailure = 0;  // 0: no failure is planned
bool gHasFailed = false;

bool failsNow()
{
    if (gRequestsUntilFailure == 0) return false;
    if (--gRequestsUntilFailure != 0) return false;
    gHasFailed = true;
    return true;
}

// The C library may answer a request for 0 bytes with null, which callers could not distinguish
// from failure.
std::size_t atLeastOneByte(std::size_t size)
{
    return size == 0 ? 1 : size;
}
}  // namespace

void* baseAllocate(std::size_t size)
{
    return failsNow() ? nullptr : std::malloc(atLeastOneByte(size));
}

void* baseAllocateZeroed(std::size_t size)
{
    return failsNow() ? nullptr : std::calloc(1, atLeastOneByte(size));
}

void* baseReallocate(void* block, std::size_t size)
{
    return failsNow() ? nullptr : std::realloc(block, atLeastOneByte(size));
}

void baseFree(void* block)
{
    std::free(block);
}

void baseFailAllocation(std::uint64_t nth)
{
    gRequestsUntilFailure = nth;
    gHasFailed = false;
}

bool baseAllocationHasFailed()
{
    return gHasFailed;
}

}  // namespace pinorama
