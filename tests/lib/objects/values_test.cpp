#include "lib/objects/values.h"

#include "base/alloc.h"
#include "lib/objects/object_holder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace pinorama;

TEST(TovNumberCreateSInt64, isReadableInBothForms)
{
    const ObjectHolder number(TovNumberCreateSInt64(-7));
    EXPECT_FALSE(number.get()->isFloat);
    EXPECT_EQ(number.get()->integer, -7);
    EXPECT_EQ(number.get()->floating, -7.0);
}

TEST(TovNumberCreateDouble, truncatesTowardZeroAndStopsAtTheEnds)
{
    constexpr std::int64_t kLowest = std::numeric_limits<std::int64_t>::min();
    constexpr std::int64_t kHighest = std::numeric_limits<std::int64_t>::max();
    const struct {
        const char* name;
        double value;
        std::int64_t integer;
    } rows[] = {
        {"positive", 3.99, 3},
        {"negative", -3.99, -3},
        {"lowest", -9223372036854775808.0, kLowest},
        {"one step below 2^63", 9223372036854774784.0, 9223372036854774784},
        {"2^63", 9223372036854775808.0, kHighest},
        {"huge", 1e300, kHighest},
        {"minus infinity", -HUGE_VAL, kLowest},
        {"not a number", std::nan(""), 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const ObjectHolder number(TovNumberCreateDouble(row.value));
        EXPECT_TRUE(number.get()->isFloat);
        EXPECT_EQ(number.get()->integer, row.integer);
    }
}

TEST(TovBooleanCreate, givesTheTwoSharedValues)
{
    EXPECT_TRUE(TovBooleanCreate(true)->value);
    EXPECT_FALSE(TovBooleanCreate(false)->value);
    EXPECT_EQ(TovBooleanCreate(true), TovBooleanCreate(true));
}

TEST(TovDateGetAbsoluteTime, isTheTimeOfTheDateAndZeroForNull)
{
    const ObjectHolder date(TovDateCreate(-12.5));
    EXPECT_EQ(TovDateGetAbsoluteTime(date.get()), -12.5);
    EXPECT_EQ(TovDateGetAbsoluteTime(nullptr), 0.0);
}

TEST(asNumber, andItsSiblingsKeepTheKindsApart)
{
    const ObjectHolder number(TovNumberCreateSInt64(1));
    const ObjectHolder boolean(TovBooleanCreate(true));
    const ObjectHolder date(TovDateCreate(1.0));
    EXPECT_EQ(asNumber(number.get()), number.get());
    EXPECT_EQ(asNumber(boolean.get()), nullptr);
    EXPECT_EQ(asBoolean(boolean.get()), boolean.get());
    EXPECT_EQ(asBoolean(number.get()), nullptr);
    EXPECT_EQ(asDate(date.get()), date.get());
    EXPECT_EQ(asDate(nullptr), nullptr);
}

TEST(TovNumberCreateSInt64, andItsSiblingsGiveNullWhenMemoryRunsOut)
{
    baseFailAllocation(1);
    EXPECT_EQ(TovNumberCreateSInt64(1), nullptr);
    baseFailAllocation(1);
    EXPECT_EQ(TovNumberCreateDouble(1.0), nullptr);
    baseFailAllocation(1);
    EXPECT_EQ(TovDateCreate(1.0), nullptr);
    baseFailAllocation(0);
}
