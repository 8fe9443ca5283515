#include "lib/containers/memory_bytes.h"

#include <cstring>

void memFillZero(void* pointer, std::uint32_t byteCount)
{
    if (byteCount > 0) std::memset(pointer, 0, byteCount);
}

void memCopy(const void* source, void* dest, std::uint32_t byteCount)
{
    if (byteCount == 0) return;
    const auto* from = static_cast<const std::uint8_t*>(source);
    auto* to = static_cast<std::uint8_t*>(dest);

    // Below the source (where the difference wraps) and after it a block move gives the same
    // bytes.
    const auto ahead =
        reinterpret_cast<std::uintptr_t>(to) - reinterpret_cast<std::uintptr_t>(from);
    if (ahead == 0 || ahead >= byteCount) {
        std::memmove(to, from, byteCount);
        return;
    }
    // Inside it the bytes that were just written are read again. Callers fill memory with a pattern
    // this way; pinned by memCopy.destinationInsideTheSourceRepeatsTheBytesBetween.
    for (std::uint32_t i = 0; i < byteCount; ++i) to[i] = from[i];
}
