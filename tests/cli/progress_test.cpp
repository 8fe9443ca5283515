#include "cli/progress.h"

#include <gtest/gtest.h>

using namespace pinorama;

TEST(progressText, showsCountAndRate)
{
    const struct {
        std::uint64_t files;
        double seconds;
        const char* expected;
    } rows[] = {
        {0, 1.0, "0 pictures"},
        {5, 0.0, "5 pictures"},
        {1, 1.0, "1 picture, 1.0 per second"},
        {96, 10.0, "96 pictures, 9.6 per second"},
        {100, 10.0, "100 pictures, 10 per second"},
        {1000, 0.5, "1000 pictures, 2000 per second"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(progressText(row.files, row.seconds), row.expected);
    }
}

TEST(summaryText, showsCountsAndSeconds)
{
    EXPECT_EQ(summaryText({}, 0.0), "0 pictures, 0 with a position, 0 not read, 0.0 seconds");
    EXPECT_EQ(summaryText({.files = 1, .located = 1}, 0.04),
              "1 picture, 1 with a position, 0 not read, 0.0 seconds");
    EXPECT_EQ(summaryText({.files = 340, .located = 120, .failed = 3}, 61.26),
              "340 pictures, 120 with a position, 3 not read, 61.3 seconds");
}
