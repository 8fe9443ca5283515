#include "lib/text/date_format.h"

#include "tests/support/environment.h"
#include "tests/support/texts.h"

#include <gtest/gtest.h>

using namespace pinorama;

using test::takeUTF8;

namespace {
constexpr std::int64_t kEvening = 1229970600;  // 2008-12-22 18:30
}  // namespace

TEST(createDateText, writesAsTheLanguageDoes)
{
    const struct {
        const char* locale;
        DateStyle style;
        const char* expected;
    } rows[] = {
        {"de", DateStyle::date, "22.12.2008"},
        {"de", DateStyle::dateAndTime, "22.12.2008, 18:30"},
        {"de", DateStyle::dayAndMonth, "22 Dezember"},
        {"en", DateStyle::date, "Dec 22, 2008"},
        {"en_GB", DateStyle::dateAndTime, "22 Dec 2008, 18:30"},
        {"fr_CA", DateStyle::dateAndTime, "22 déc. 2008, 18 h 30"},
        {"fa_IR", DateStyle::date, "۲ دی ۱۳۸۷"},
        {"fr", DateStyle::dayAndMonth, "22 décembre"},
        {"ja", DateStyle::date, "2008/12/22"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.expected);
        EXPECT_EQ(takeUTF8(createDateText(row.locale, row.style, kEvening)), row.expected);
    }
}

TEST(createDateText, ignoresTheTimeZone)
{
    const test::ScopedVariable zone("TZ", "Pacific/Auckland");
    EXPECT_EQ(takeUTF8(createDateText("de", DateStyle::dateAndTime, kEvening)),
              "22.12.2008, 18:30");
}

TEST(createDateText, writesTimesBefore1970)
{
    EXPECT_EQ(takeUTF8(createDateText("de", DateStyle::dateAndTime, -1)), "31.12.1969, 23:59");
    EXPECT_EQ(takeUTF8(createDateText("de", DateStyle::date, -2082844800)), "01.01.1904");
}
