#include "lib/debug/debug_console.h"

#include <gtest/gtest.h>

#include <cstdint>

#include <unistd.h>

TEST(debugDisplayNumber, printsOneLine)
{
    testing::internal::CaptureStdout();
    debugDisplayNumber(42);
    debugDisplayNumber(INT32_MIN);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "Skallion: 42\nSkallion: -2147483648\n");
}

TEST(debugCounterStop, printsTheTicksSinceTheStart)
{
    debugCounterStart();
    usleep(100'000);  // six ticks
    testing::internal::CaptureStdout();
    debugCounterStop();
    const std::string text = testing::internal::GetCapturedStdout();
    int ticks = 0;
    int length = 0;
    ASSERT_EQ(std::sscanf(text.c_str(), "Skallion Time: %d ticks\n%n", &ticks, &length), 1) << text;
    EXPECT_EQ(static_cast<std::size_t>(length), text.size());
    EXPECT_GE(ticks, 5);
    EXPECT_LT(ticks, 600);
}
