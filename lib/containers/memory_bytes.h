// Clearing and copying plain bytes, in the manner the containers' callers rely on.

#pragma once

#include <cstdint>

// Sets `byteCount` bytes to zero.
void memFillZero(void* pointer, std::uint32_t byteCount);

// Copies `byteCount` bytes one after the other, the first byte first. Mind the order of the
// arguments: the source comes first. When `dest` lies inside the source the bytes between the two
// repeat themselves over all of `dest` (dest = source + 1 spreads the first byte).
void memCopy(const void* source, void* dest, std::uint32_t byteCount);
