#include "lib/debug/debug_console.h"

#include "base/ticks.h"

#include <cinttypes>
#include <cstdio>

namespace {
std::uint32_t gStopwatch = 0;  // the tick count at the start
}  // namespace

void debugCounterStart()
{
    gStopwatch = platform::tickCount();
}

void debugCounterStop()
{
    std::printf("Skallion Time: %" PRIu32 " ticks\n", platform::tickCount() - gStopwatch);
}

void debugDisplayNumber(std::int32_t value)
{
    std::printf("Skallion: %" PRId32 "\n", value);
}
