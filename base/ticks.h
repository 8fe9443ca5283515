// A clock that only runs forward, for measuring and for names that should not repeat.

#pragma once

#include <cstdint>

namespace pinorama {

// Sixtieths of a second since some moment in the past, the low 32 bits: differences stay right when
// the count wraps.
std::uint32_t tickCount();

}  // namespace pinorama
