// A stopwatch and a number printer on standard output, for measuring by hand.

#pragma once

#include <cstdint>

// Starts the stopwatch of the process; there is one for all callers.
void debugCounterStart();

// Prints "Skallion Time: N ticks" with the sixtieths of a second since the start. The stopwatch
// runs on.
void debugCounterStop();

// Prints "Skallion: N".
void debugDisplayNumber(std::int32_t value);
