// The time at which a picture was taken, in words, and on which clock.

#include "places/words/taken_words.h"
#include "places/words/place_words.h"

#include "lib/ui/string_tables.h"
#include "tests/support/environment.h"
#include "tests/support/failing_memory.h"
#include "tests/support/texts.h"

#include <gtest/gtest.h>

using namespace pinorama;

namespace {
constexpr std::int64_t kNoonInJuly = 1784030400;  // 2026-07-14 12:00
constexpr std::int64_t kNoonInJanuary = 1767268800;
constexpr std::int64_t kHour = 3600;

struct Words {
    std::string text, source;
};

Words wordsOf(const TakenTime& taken, const char* zone, const char* locale = "en_GB.UTF-8")
{
    const test::ScopedVariable language("LANGUAGE", nullptr);
    const test::ScopedVariable variable("LC_ALL", locale);
    iuRegisterBundle(test::text("test.places").get(), PLACES_STRINGS, true);
    return {test::takeUTF8(createTakenText(taken, zone)).value_or("none"),
            test::takeUTF8(createTakenSource(taken, zone)).value_or("none")};
}
}  // namespace

TEST(createTakenText, isInTheTimeOfThePlaceIfThatCanBeKnown)
{
    const struct {
        const char* name;
        TakenTime taken;
        const char* zone;
        const char *text, *source;
    } rows[] = {
        {"a camera that was set to the place",
         {kNoonInJuly, 120},
         "Europe/Rome",
         "14 Jul 2026, 12:00 (UTC+2)",
         "By the camera's clock, which was set to UTC+2."},
        {"a camera at an unknown place",
         {kNoonInJuly, -210},
         "",
         "14 Jul 2026, 12:00 (UTC\u22123:30)",
         "By the camera's clock, which was set to UTC\u22123:30."},
        {"a camera that was left at home",
         {kNoonInJuly, 120},
         "Asia/Tokyo",
         "14 Jul 2026, 19:00 (Japan Standard Time)",
         "In the time of the place. The camera's clock was set to UTC+2 and showed 14 Jul 2026, "
         "12:00."},
        {"satellites, in summer",
         {kNoonInJuly, 0, true},
         "Europe/Rome",
         "14 Jul 2026, 14:00 (Central European Summer Time)",
         "By the clock of the satellites, in the time of the place."},
        {"satellites, in winter",
         {kNoonInJanuary, 0, true},
         "Europe/Rome",
         "1 Jan 2026, 13:00 (Central European Standard Time)",
         "By the clock of the satellites, in the time of the place."},
        {"satellites, on the next day",
         {kNoonInJuly, 0, true},
         "Pacific/Apia",
         "15 Jul 2026, 01:00 (Apia Standard Time)",
         "By the clock of the satellites, in the time of the place."},
        {"satellites at sea",
         {kNoonInJuly, 0, true},
         "",
         "14 Jul 2026, 12:00 (UTC)",
         "By the clock of the satellites, which is in UTC."},
        {"a clock without an offset",
         {kNoonInJuly, std::nullopt},
         "America/Argentina/Ushuaia",
         "14 Jul 2026, 12:00 (Argentina Standard Time)",
         "By the camera's clock. The picture does not state its time zone; the one shown is that "
         "of the place."},
        {"a clock without an offset, in summer",
         {kNoonInJuly, std::nullopt},
         "Europe/Rome",
         "14 Jul 2026, 12:00 (Central European Summer Time)",
         "By the camera's clock. The picture does not state its time zone; the one shown is that "
         "of the place."},
        {"a clock and nothing else",
         {kNoonInJuly, std::nullopt},
         "",
         "14 Jul 2026, 12:00",
         "By the camera's clock. Its time zone is not known."},
        {"a zone that ICU does not know",
         {kNoonInJuly, 0, true},
         "Europe/Nowhere",
         "14 Jul 2026, 12:00 (UTC)",
         "By the clock of the satellites, which is in UTC."},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const Words words = wordsOf(row.taken, row.zone);
        EXPECT_EQ(words.text, row.text);
        EXPECT_EQ(words.source, row.source);
    }
}

TEST(createTakenText, speaksTheUsersLanguage)
{
    const TakenTime taken{kNoonInJuly, 0, true};
    EXPECT_EQ(wordsOf(taken, "Europe/Rome", "de_DE.UTF-8").text,
              "14.07.2026, 14:00 (Mitteleuropäische Sommerzeit)");
    EXPECT_EQ(wordsOf(taken, "Asia/Tokyo", "ja_JP.UTF-8").text, "2026/07/14 21:00（日本標準時）");
    EXPECT_EQ(wordsOf(taken, "Europe/Rome", "de_DE.UTF-8").source,
              "Nach der Uhr der Satelliten, in der Zeit des Ortes.");
}

TEST(createTakenText, givesNullIfMemoryRunsOut)
{
    const TakenTime taken{kNoonInJuly, 120};
    (void)wordsOf(taken, "Asia/Tokyo");  // reads the tables
    EXPECT_GT(test::failEachRequest([&] { return createTakenText(taken, "Asia/Tokyo"); }), 3U);
    EXPECT_GT(test::failEachRequest([&] { return createTakenSource(taken, "Asia/Tokyo"); }), 3U);
}

TEST(instantOf, needsTheOffsetOfTheClock)
{
    EXPECT_EQ(instantOf({kNoonInJuly, 120}), kNoonInJuly - 2 * kHour);
    EXPECT_EQ(instantOf({kNoonInJuly, -210}), kNoonInJuly + 3 * kHour + kHour / 2);
    EXPECT_EQ(instantOf({kNoonInJuly, 0, true}), kNoonInJuly);
    EXPECT_EQ(instantOf({kNoonInJuly, std::nullopt}), std::nullopt);
}

TEST(createViewText, saysWhichNorthIsMeant)
{
    const test::ScopedVariable language("LANGUAGE", nullptr);
    const test::ScopedVariable variable("LC_ALL", "en_US");
    iuRegisterBundle(test::text("test.places").get(), PLACES_STRINGS, true);
    const struct {
        char north;
        const char* expected;
    } rows[] = {{'T', "SSE (true)"}, {'M', "SSE (magnetic)"}, {'t', "SSE"}, {0, "SSE"}};
    for (const auto& row : rows)
        EXPECT_EQ(test::takeUTF8(createViewText(164, row.north)), row.expected);
}
