#include "reader/reader_watch.h"

#include <gtest/gtest.h>

#include <chrono>

using namespace pinorama;

namespace {
using namespace std::chrono_literals;

constexpr ReaderPatience kPatience = {.processor = 1s, .silence = 20s, .whole = 60s};
constexpr ReaderWatch::Time kStart{1h};

// A watch over work that has just begun, with a reader that has had 5 seconds of processor time.
ReaderWatch watchThatBegan()
{
    ReaderWatch watch;
    watch.begin(kPatience, kStart);
    EXPECT_TRUE(watch.isDue(kStart));
    EXPECT_FALSE(watch.isStuck(kStart, 5s));
    return watch;
}

TEST(ReaderWatch, countsTheProcessorTimeOfThisWorkOnly)
{
    ReaderWatch watch = watchThatBegan();
    EXPECT_FALSE(watch.isStuck(kStart + 1s, 5s + 999ms));
    EXPECT_TRUE(watch.isStuck(kStart + 1s, 6s));
    watch.begin(kPatience, kStart + 2s);
    EXPECT_FALSE(watch.isStuck(kStart + 2s, 6s));
    EXPECT_FALSE(watch.isStuck(kStart + 3s, 6s + 999ms));
}

TEST(ReaderWatch, aReaderThatSleepsIsStuckAfterALongSilence)
{
    ReaderWatch watch = watchThatBegan();
    for (auto time = 200ms; time < 20s; time += 200ms) {
        EXPECT_FALSE(watch.isStuck(kStart + time, 5s)) << time.count();
    }
    EXPECT_TRUE(watch.isStuck(kStart + 20s, 5s));
}

TEST(ReaderWatch, everyBitOfProcessorTimeIsASignOfLife)
{
    ReaderWatch watch = watchThatBegan();
    EXPECT_FALSE(watch.isStuck(kStart + 19s, 5s + 1us));
    EXPECT_FALSE(watch.isStuck(kStart + 38s, 5s + 1us));
    EXPECT_FALSE(watch.isStuck(kStart + 38s + 900ms, 5s + 2us));
    EXPECT_FALSE(watch.isStuck(kStart + 58s, 5s + 2us));
    EXPECT_TRUE(watch.isStuck(kStart + 58s + 900ms, 5s + 2us));
}

TEST(ReaderWatch, givesUpInTheEndWhateverTheReaderDoes)
{
    ReaderWatch watch = watchThatBegan();
    for (int second = 1; second < 60; second++) {
        EXPECT_FALSE(watch.isStuck(kStart + second * 1s, 5s + second * 1us)) << second;
    }
    EXPECT_TRUE(watch.isStuck(kStart + 60s, 5s + 60us));
}

TEST(ReaderWatch, looksAtOnceAndAgainWhenTheWorkMayHaveTakenTooLong)
{
    ReaderWatch watch;
    watch.begin(kPatience, kStart);
    EXPECT_TRUE(watch.isDue(kStart));
    (void)watch.isStuck(kStart, 0s);
    EXPECT_FALSE(watch.isDue(kStart + 999ms));
    EXPECT_TRUE(watch.isDue(kStart + 1s));
    EXPECT_EQ(watch.nextLook(kStart), kStart + 1s);
    EXPECT_GT(watch.nextLook(kStart + 1s), kStart + 1s);
    EXPECT_LE(watch.nextLook(kStart + 1s), kStart + 2s);
    EXPECT_LE(watch.nextLook(kStart + 60s), kStart + 60s) << "it is over";
}
}  // namespace
