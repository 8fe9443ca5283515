#include "lib/text/leading_number.h"

#include "base/alloc.h"
#include "tests/support/environment.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <limits>
#include <string>

using namespace pinorama;

TEST(leadingInteger, readsWhatTheTextBeginsWith)
{
    const struct {
        const char* name;
        std::u16string text;
        std::int32_t expected;
    } rows[] = {
        {"empty", u"", 0},
        {"plain", u"42", 42},
        {"trailing text", u"42abc", 42},
        {"no digit", u"abc", 0},
        {"sign alone", u"-", 0},
        {"minus", u"-7", -7},
        {"plus", u"+7", 7},
        {"two signs", u"--7", 0},
        {"blank after the sign", u"- 7", 0},
        {"white space", u" \t\n\u00a0\u30007", 7},
        {"leading zeros", u"0007", 7},
        {"point", u"3.9", 3},
        {"hexadecimal", u"0x10", 0},
        {"other digits", u"\u0663", 0},
        {"embedded null", std::u16string(u"1\0002", 3), 1},
        {"highest", u"2147483647", 2147483647},
        {"beyond the highest", u"2147483648", 2147483647},
        {"lowest", u"-2147483648", std::numeric_limits<std::int32_t>::min()},
        {"beyond the lowest", u"-2147483649", std::numeric_limits<std::int32_t>::min()},
        {"far beyond", u"99999999999999999999999999", 2147483647},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(leadingInteger(row.text), row.expected);
    }
}

TEST(leadingDouble, readsWhatTheTextBeginsWith)
{
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    const struct {
        const char* name;
        std::u16string text;
        double expected;
    } rows[] = {
        {"empty", u"", 0.0},
        {"integer", u"45", 45.0},
        {"trailing text", u"45x", 45.0},
        {"fraction", u"48.125", 48.125},
        {"comma", u"1,5", 1.0},
        {"no integer digits", u".5", 0.5},
        {"no fraction digits", u"5.", 5.0},
        {"point alone", u".", 0.0},
        {"point and exponent", u".e5", 0.0},
        {"minus", u"-2.5", -2.5},
        {"plus", u"+2.5", 2.5},
        {"white space", u" \t2.5", 2.5},
        {"exponent", u"1.5e3", 1500.0},
        {"capital exponent", u"1E-2", 0.01},
        {"signed exponent", u"1e+2", 100.0},
        {"exponent without digits", u"2e", 2.0},
        {"exponent without digits but a sign", u"2e+x", 2.0},
        {"hexadecimal", u"0x1p3", 0.0},
        {"infinity", u"inf", 0.0},
        {"not a number", u"nan", 0.0},
        {"too large", u"1e400", kInfinity},
        {"too large below zero", u"-1e400", -kInfinity},
        {"too small", u"1e-400", 0.0},
        {"exponent beyond 64 bits", u"1e99999999999999999999", kInfinity},
        {"exponent far below", u"1e-99999999999999999999", 0.0},
        {"zero with any exponent", u"0e99999999999999999999", 0.0},
        {"nearest double", u"0.1", 0.1},
        {"seventeen digits", u"179.99999999999997", 179.99999999999997},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(leadingDouble(row.text), row.expected);
    }
}

TEST(leadingDouble, keepsTheSignOfZero)
{
    EXPECT_TRUE(std::signbit(leadingDouble(u"-0.0")));
    EXPECT_FALSE(std::signbit(leadingDouble(u"0.0")));
}

TEST(leadingDouble, readsNumbersOfAnyLength)
{
    const std::u16string zeros(400, u'0');
    EXPECT_EQ(leadingDouble(u"0." + zeros + u"25e401"), 2.5);
    EXPECT_EQ(leadingDouble(u"25" + zeros + u"e-400"), 25.0);
    EXPECT_EQ(leadingDouble(u"25" + zeros), std::numeric_limits<double>::infinity());
    EXPECT_EQ(leadingDouble(u"0." + zeros + u"25"), 0.0);
}

TEST(leadingDouble, givesZeroWhenMemoryRunsOut)
{
    const std::u16string number = u"1." + std::u16string(400, u'3');
    baseFailAllocation(1);
    EXPECT_EQ(leadingDouble(number), 0.0);
    EXPECT_TRUE(baseAllocationHasFailed());
    baseFailAllocation(0);
}
