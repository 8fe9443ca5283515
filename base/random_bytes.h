// Random bytes from the system, good enough for identifiers that must never meet.

#pragma once

#include <cstddef>

namespace pinorama {

// Fills `dest` with `count` bytes (at most 256). False when the system has none to give.
bool fillWithRandomBytes(void* dest, std::size_t count);

}  // namespace pinorama
