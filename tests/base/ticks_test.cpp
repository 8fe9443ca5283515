#include "base/ticks.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

using namespace pinorama;

TEST(tickCount, countsSixtiethsOfASecond)
{
    using Clock = std::chrono::steady_clock;
    const auto start = Clock::now();
    const std::uint32_t first = tickCount();
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    const std::uint32_t ticks = tickCount() - first;
    const double seconds = std::chrono::duration<double>(Clock::now() - start).count();
    EXPECT_GE(ticks, 5u);
    EXPECT_LE(ticks, seconds * 60 + 1);
}
