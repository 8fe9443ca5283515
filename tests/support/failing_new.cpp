// Operator new on top of base/alloc.h, whose planned failures then hit the containers of the
// standard library as well.

#include "base/alloc.h"

#include <cstddef>
#include <new>

using namespace pinorama;

namespace {
void* allocateOrThrow(std::size_t size)
{
    void* block = baseAllocate(size);
    if (block == nullptr) throw std::bad_alloc();
    return block;
}
}  // namespace

void* operator new(std::size_t size)
{
    return allocateOrThrow(size);
}

void* operator new[](std::size_t size)
{
    return allocateOrThrow(size);
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    return baseAllocate(size);
}

void* operator new[](std::size_t size, const std::nothrow_t&) noexcept
{
    return baseAllocate(size);
}

void operator delete(void* block) noexcept
{
    baseFree(block);
}

void operator delete[](void* block) noexcept
{
    baseFree(block);
}

void operator delete(void* block, std::size_t) noexcept
{
    baseFree(block);
}

void operator delete[](void* block, std::size_t) noexcept
{
    baseFree(block);
}

void operator delete(void* block, const std::nothrow_t&) noexcept
{
    baseFree(block);
}

void operator delete[](void* block, const std::nothrow_t&) noexcept
{
    baseFree(block);
}
