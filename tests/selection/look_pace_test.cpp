#include "selection/look_pace.h"

#include "tests/support/event_loop.h"

#include <gtest/gtest.h>

using namespace pinorama;

namespace {
class LookPaceTest : public testing::Test {
protected:
    bool looks(int count)
    {
        return test::waitUntil([&] { return looks_ >= count; });
    }

    int looks_ = 0;
    LookPace pace_{[this] { looks_++; }};
};

TEST_F(LookPaceTest, looksOnceForManyRequests)
{
    for (int i = 0; i < 1000; i++) pace_.request();
    ASSERT_TRUE(looks(1));
    EXPECT_TRUE(pace_.isLooking());
    pace_.end();
    test::goOnFor(100);
    EXPECT_EQ(looks_, 1);
    EXPECT_FALSE(pace_.isLooking());
}

TEST_F(LookPaceTest, looksFromTheEventLoopOnly)
{
    pace_.request();
    EXPECT_EQ(looks_, 0);
    EXPECT_TRUE(looks(1));
}

TEST_F(LookPaceTest, aRequestDuringALookLeadsToOneMoreAfterIt)
{
    pace_.request();
    ASSERT_TRUE(looks(1));
    for (int i = 0; i < 1000; i++) pace_.request();
    test::goOnFor(100);
    EXPECT_EQ(looks_, 1);
    pace_.end();
    ASSERT_TRUE(looks(2));
    pace_.end();
    test::goOnFor(100);
    EXPECT_EQ(looks_, 2);
}

TEST_F(LookPaceTest, looksAtMostFiftyTimesASecond)
{
    using namespace std::chrono_literals;
    int looks = 0;
    LookPace pace([&] {
        looks++;
        pace.end();
        pace.request();
    });
    const Clock::time_point begin = Clock::now();
    pace.request();
    ASSERT_TRUE(test::waitUntil([&] { return looks >= 20; }));
    EXPECT_LE(looks, (Clock::now() - begin) / 20ms + 1);
}

TEST_F(LookPaceTest, restsAsLongAsALookHasTaken)
{
    pace_.request();
    ASSERT_TRUE(looks(1));
    const Clock::time_point began = Clock::now();
    test::goOnFor(200);
    const Clock::time_point ended = Clock::now();
    pace_.end();
    pace_.request();
    ASSERT_TRUE(looks(2));
    EXPECT_GE(Clock::now() - ended, ended - began);
}

TEST_F(LookPaceTest, dropsARequest)
{
    pace_.request();
    pace_.drop();
    test::goOnFor(100);
    EXPECT_EQ(looks_, 0);
    pace_.request();
    EXPECT_TRUE(looks(1));
}

TEST_F(LookPaceTest, anEndWithoutALookChangesNothing)
{
    pace_.end();
    test::goOnFor(40);
    EXPECT_EQ(looks_, 0);
}
}  // namespace
