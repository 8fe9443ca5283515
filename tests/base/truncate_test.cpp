#include "base/truncate.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>

using namespace pinorama;

namespace {
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();
constexpr std::int64_t kLowest = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t kHighest = std::numeric_limits<std::int64_t>::max();
}  // namespace

TEST(baseTruncate, goesTowardsZeroAndStaysInTheRange)
{
    const struct {
        double value;
        std::int64_t expected;
    } rows[] = {
        {0.0, 0},
        {2.9, 2},
        {-2.9, -2},
        {1e18, 1'000'000'000'000'000'000},
        {1e19, kHighest},
        {-1e19, kLowest},
        {kInfinity, kHighest},
        {-kInfinity, kLowest},
        {kNoNumber, 0},
        {-9223372036854775808.0, kLowest},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.value);
        EXPECT_EQ(baseTruncate(row.value), row.expected);
    }
}

TEST(baseFloor, isTheFloorOfTheMathematicalLibrary)
{
    for (const double value :
         {0.0, -0.0, 0.5, -0.5, 1.0, -1.0, 2.999, -2.001, 4503599627370496.5, -4503599627370495.5,
          1e300, -1e300, 5e-324, -5e-324, kInfinity, -kInfinity}) {
        SCOPED_TRACE(value);
        EXPECT_EQ(baseFloor(value), std::floor(value));
    }
    EXPECT_TRUE(std::isnan(baseFloor(kNoNumber)));
}
