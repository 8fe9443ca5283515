#include "base/time_zone.h"

#include "tests/support/environment.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <limits>

using namespace pinorama;

namespace {
using test::ScopedVariable;

constexpr std::int64_t kNewYear2008 = 1199145600;   // UTC
constexpr std::int64_t kBerlinSpring = 1206838800;  // 2008-03-30 01:00 UTC, 02:00 becomes 03:00
constexpr std::int64_t kBerlinAutumn = 1224982800;  // 2008-10-26 01:00 UTC, 03:00 becomes 02:00
constexpr std::int64_t kHour = 3600;
}  // namespace

TEST(utcOffsetAt, isTheOffsetInForceAtThatMoment)
{
    const ScopedVariable zone("TZ", "Europe/Berlin");
    EXPECT_EQ(utcOffsetAt(kNewYear2008), kHour);
    EXPECT_EQ(utcOffsetAt(kBerlinSpring - 1), kHour);
    EXPECT_EQ(utcOffsetAt(kBerlinSpring), 2 * kHour);
    EXPECT_EQ(utcOffsetAt(kBerlinAutumn - 1), 2 * kHour);
    EXPECT_EQ(utcOffsetAt(kBerlinAutumn), kHour);
}

TEST(utcOffsetAt, noticesAChangeOfTheZone)
{
    const ScopedVariable zone("TZ", "UTC");
    EXPECT_EQ(utcOffsetAt(kNewYear2008), 0);
    setenv("TZ", "Asia/Kolkata", 1);  // without tzset
    EXPECT_EQ(utcOffsetAt(kNewYear2008), 19800);
}

TEST(utcOffsetAt, isZeroBeyondTheCalendar)
{
    const ScopedVariable zone("TZ", "Europe/Berlin");
    EXPECT_EQ(utcOffsetAt(std::numeric_limits<std::int64_t>::max()), 0);
    EXPECT_EQ(utcOffsetAt(std::numeric_limits<std::int64_t>::min()), 0);
}

TEST(instantOfLocalTime, isTheWayBack)
{
    for (const char* name :
         {"UTC", "Europe/Berlin", "America/New_York", "Asia/Kolkata", "Pacific/Auckland"}) {
        SCOPED_TRACE(name);
        const ScopedVariable zone("TZ", name);
        for (std::int64_t instant = kNewYear2008; instant < kNewYear2008 + 366 * 24 * kHour;
             instant += 5 * kHour) {
            const std::int64_t local = instant + utcOffsetAt(instant);
            ASSERT_EQ(instantOfLocalTime(local), instant);
        }
    }
}

TEST(instantOfLocalTime, takesTheSecondOfTwoEqualTimesInAutumn)
{
    const ScopedVariable zone("TZ", "Europe/Berlin");
    const std::int64_t halfPastTwo = kBerlinAutumn + kHour + kHour / 2;
    EXPECT_EQ(instantOfLocalTime(halfPastTwo), kBerlinAutumn + kHour / 2);
    // The hours around it occur once.
    EXPECT_EQ(instantOfLocalTime(kBerlinAutumn + kHour - 1), kBerlinAutumn - kHour - 1);
    EXPECT_EQ(instantOfLocalTime(kBerlinAutumn + 2 * kHour), kBerlinAutumn + kHour);
}

TEST(instantOfLocalTime, readsASkippedTimeWithTheOffsetBeforeTheChange)
{
    const ScopedVariable zone("TZ", "Europe/Berlin");
    const std::int64_t halfPastTwo = kBerlinSpring + kHour + kHour / 2;
    EXPECT_EQ(instantOfLocalTime(halfPastTwo), kBerlinSpring + kHour / 2);
}
