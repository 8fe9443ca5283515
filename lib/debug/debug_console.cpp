#include "lib/debug/debug_console.h"

#include "base/ticks.h"

#include <cinttypes>
#include <cstdio>

using namespace pinorama;

namespace {
std::uint32_t gStopwatch = 0;  // the tick count at the start
}  // namespace

void debugCounterStart()
{
    gStopwatch = tickCount();
}

void debugCounterStop()
{
    std::printf("Skallion Time: %" PRIu32 " ticks\n", tickCount() - gStopwatch);
}

void debugDisplayNumber(std::int32_t value)
{
    std::printf("Skallion: %" PRId32 "\n", value);
}
