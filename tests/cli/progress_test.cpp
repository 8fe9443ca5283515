#include "cli/progress.h"

#include <gtest/gtest.h>

#include <thread>

using namespace pinorama;

TEST(progressText, tellsCountRateAndTimeLeft)
{
    using Total = std::optional<std::uint64_t>;
    const struct {
        std::uint64_t files;
        Total total;
        double seconds;
        const char* expected;
    } rows[] = {
        {0, {}, 1.0, "0 pictures"},
        {1, {}, 1.0, "1 picture, 1.0 per second"},
        {1, 340, 1.0, "1 of 340 pictures, 1.0 per second, 5:39 left"},
        {1000, {}, 0.5, "1000 pictures, 2000 per second"},
        {1000, 100'000, 0.5, "1000 of 100000 pictures, 2000 per second, 0:49 left"},
        {10, 100'000, 10.0, "10 of 100000 pictures, 1.0 per second, 27:46:30 left"},
        {340, 340, 1.0, "340 of 340 pictures, 340 per second, 0:00 left"},
        {350, 340, 1.0, "350 of 340 pictures, 350 per second, 0:00 left"},
        {5, 340, 0.0, "5 of 340 pictures"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(progressText(row.files, row.total, row.seconds), row.expected);
    }
}

TEST(summaryText, tellsWhatHasComeOfIt)
{
    EXPECT_EQ(summaryText({}, 0.0), "0 pictures, 0 with a position, 0 not read, 0.0 seconds");
    EXPECT_EQ(summaryText({.files = 1, .located = 1}, 0.04),
              "1 picture, 1 with a position, 0 not read, 0.0 seconds");
    EXPECT_EQ(summaryText({.files = 340, .located = 120, .failed = 3}, 61.26),
              "340 pictures, 120 with a position, 3 not read, 61.3 seconds");
}

TEST(FileCount, comesFromAnotherProcess)
{
    FileCount count;
    EXPECT_EQ(count.number(), std::nullopt) << "nobody counts";
    count.start([] { return std::uint64_t{12345}; });
    for (int i = 0; i < 1000 && !count.number(); i++) {
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    EXPECT_EQ(count.number(), 12345u);
    EXPECT_EQ(count.number(), 12345u);
}

TEST(FileCount, isGivenUpWithItsOwner)
{
    FileCount count;
    count.start([]() -> std::uint64_t {
        while (true) pause();
    });
    EXPECT_EQ(count.number(), std::nullopt);
}
