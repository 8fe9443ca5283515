#include "base/truncate.h"

#include <gtest/gtest.h>

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
