#include "lib/conv/mac_time.h"

#include "tests/support/environment.h"

#include <gtest/gtest.h>

#include <limits>

namespace {
constexpr double kAbsoluteTimeOf2000 = -31622400.0;
constexpr std::uint32_t kMacTimeOf2000 = 3029529600;
constexpr double kDay = 86400.0;
}  // namespace

TEST(macSecondsInUTC, floorsAndWraps)
{
    const struct {
        const char* name;
        double absoluteTime;
        std::uint32_t expected;
    } rows[] = {
        {"2000", kAbsoluteTimeOf2000, kMacTimeOf2000},
        {"a fraction", kAbsoluteTimeOf2000 + 0.999, kMacTimeOf2000},
        {"a fraction before 2001", -0.25, 3061151999},
        {"the start of 1904", -3061152000.0, 0},
        {"the last second before it", -3061152001.0, 4294967295},
        {"2040-02-06 06:28:15", 1233815295.0, 4294967295},
        {"2040-02-06 06:28:16", 1233815296.0, 0},
        {"infinity", std::numeric_limits<double>::infinity(), 0},
        {"no number", std::numeric_limits<double>::quiet_NaN(), 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(macSecondsInUTC(row.absoluteTime), row.expected);
    }
}

TEST(macSecondsOnLocalClock, addsTheOffsetOfThatDate)
{
    const struct {
        const char* zone;
        double absoluteTime;
        std::int32_t offset;
    } rows[] = {
        {"UTC", kAbsoluteTimeOf2000, 0},
        {"Europe/Berlin", kAbsoluteTimeOf2000, 3600},
        {"Europe/Berlin", kAbsoluteTimeOf2000 + 182 * kDay, 7200},
        {"America/New_York", kAbsoluteTimeOf2000, -18000},
        {"America/New_York", kAbsoluteTimeOf2000 + 182 * kDay, -14400},
        {"Asia/Kolkata", kAbsoluteTimeOf2000, 19800},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.zone);
        const test::ScopedVariable zone("TZ", row.zone);
        EXPECT_EQ(macSecondsOnLocalClock(row.absoluteTime),
                  macSecondsInUTC(row.absoluteTime) + static_cast<std::uint32_t>(row.offset));
    }
}

TEST(macSecondsOnLocalClock, takesTimesWithoutACalendarAsTheyAre)
{
    const test::ScopedVariable zone("TZ", "Europe/Berlin");
    for (const double absoluteTime : {1e18, -1e18, 1e300, std::numeric_limits<double>::infinity(),
                                      std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_EQ(macSecondsOnLocalClock(absoluteTime), macSecondsInUTC(absoluteTime));
    }
}
