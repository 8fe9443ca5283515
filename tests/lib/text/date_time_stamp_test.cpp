#include "lib/text/date_time_stamp.h"

#include "tests/support/environment.h"

#include <gtest/gtest.h>

using namespace pinorama;

namespace {
constexpr std::int64_t kAfternoon = 1230132605;  // 2008-12-24 15:30:05 UTC
}  // namespace

TEST(shortDate, followsTheLocale)
{
    const struct {
        const char* locale;
        std::u16string expected;
    } rows[] = {
        {"en_US.UTF-8", u"12/24/08"},
        {"de_DE.UTF-8", u"24.12.08"},
        {"sv_SE.UTF-8", u"2008-12-24"},
        {"C", u"12/24/08"},
    };
    for (const auto& row : rows) {
        const test::ScopedVariable locale("LC_ALL", row.locale);
        EXPECT_TRUE(shortDate(kAfternoon) == row.expected) << row.locale;
    }
}

TEST(timeWithSeconds, followsTheLocaleWithPlainBlanks)
{
    const struct {
        const char* locale;
        std::u16string expected;
    } rows[] = {
        {"en_US.UTF-8", u"3:30:05 PM"},
        {"de_DE.UTF-8", u"15:30:05"},
        {"fi_FI.UTF-8", u"15.30.05"},
        {"C", u"3:30:05 PM"},
    };
    for (const auto& row : rows) {
        const test::ScopedVariable locale("LC_ALL", row.locale);
        EXPECT_TRUE(timeWithSeconds(kAfternoon) == row.expected) << row.locale;
    }
}

TEST(timeWithSeconds, isTheClockOfTheZoneAtThatMoment)
{
    const test::ScopedVariable locale("LC_ALL", "de_DE.UTF-8");
    const test::ScopedVariable zone("TZ", "Europe/Berlin");
    EXPECT_TRUE(timeWithSeconds(kAfternoon) == u"16:30:05");
    constexpr std::int64_t kHalfAYear = 182 * 86400;
    EXPECT_TRUE(timeWithSeconds(kAfternoon - kHalfAYear) == u"17:30:05");
    EXPECT_TRUE(shortDate(kAfternoon + 8 * 3600) == u"25.12.08");
}
