#include "lib/text/date_parser.h"

#include "lib/objects/object_holder.h"
#include "tests/support/environment.h"
#include "tests/support/failing_memory.h"

#include <gtest/gtest.h>

#include <ctime>
#include <memory>
#include <optional>

using namespace pinorama;

namespace {
using test::ScopedVariable;

struct ParserReleaser {
    void operator()(DateParser* parser) const { releaseDateParser(parser); }
};
using Parser = std::unique_ptr<DateParser, ParserReleaser>;

Parser parserOf(const char16_t* pattern)
{
    return Parser(createDateParser(pattern));
}

// Seconds since 1970 of what is read, or nothing.
std::optional<std::int64_t> read(const Parser& parser, std::u16string_view text)
{
    const ObjectHolder<TovDateRef> date(createDateFromText(parser.get(), text));
    if (!date) return std::nullopt;
    return static_cast<std::int64_t>(TovDateGetAbsoluteTime(date.get()) + 978307200.0);
}

constexpr std::int64_t kChristmasEve = 1230143400;  // 2008-12-24 18:30 UTC
constexpr std::int64_t kChristmasDay = 1230163200;  // 2008-12-25 00:00 UTC
}  // namespace

TEST(createDateFromText, readsThePattern)
{
    const struct {
        const char* name;
        const char16_t *pattern, *text;
        std::optional<std::int64_t> expected;
    } rows[] = {
        {"German", u"dd.MM.yy HH:mm", u"24.12.08 18:30", kChristmasEve},
        {"German, four digits", u"dd.MM.yy HH:mm", u"24.12.2008 18:30", kChristmasEve},
        {"German, single digits", u"dd.MM.yy HH:mm", u"4.5.08 8:03", 1209888180},
        {"German, every digit single", u"dd.MM.yy HH:mm", u"4.5.08 8:3", 1209888180},
        {"German, blank in front", u"dd.MM.yy HH:mm", u" 24.12.08 18:30", kChristmasEve},
        {"afternoon", u"MM/dd/yyyy h:m:s a", u"12/24/2008 6:30:0 PM", kChristmasEve},
        {"afternoon in small letters", u"MM/dd/yyyy h:m:s a", u"12/24/2008 6:30:0 pm",
         kChristmasEve},
        {"12 AM is midnight", u"MM/dd/yyyy h:m:s a", u"12/25/2008 12:00:00 AM", kChristmasDay},
        {"12 PM is noon", u"MM/dd/yyyy h:m:s a", u"12/25/2008 12:00:00 PM", kChristmasDay + 43200},
        {"colons", u"yyyy:MM:d HH:mm:ss", u"2008:12:24 18:30:00", kChristmasEve},
        {"colons, date only", u"yyyy:MM:d", u"2008:12:25", kChristmasDay},
        {"a single-digit day", u"yyyy:MM:d", u"2008:12:5", kChristmasDay - 20 * 86400},
        {"text after the match", u"yyyy:MM:d", u"2008:12:25 and more", kChristmasDay},
        {"leap day", u"yyyy:MM:d", u"2008:02:29", 1204243200},
        {"no such leap day", u"yyyy:MM:d", u"2009:02:29", std::nullopt},
        {"no such month", u"yyyy:MM:d", u"2008:13:01", std::nullopt},
        {"how cameras say no date", u"yyyy:MM:d HH:mm:ss", u"0000:00:00 00:00:00", std::nullopt},
        {"no such hour", u"dd.MM.yy HH:mm", u"24.12.08 24:00", std::nullopt},
        {"no such minute", u"dd.MM.yy HH:mm", u"24.12.08 18:60", std::nullopt},
        {"13 o'clock in the afternoon", u"MM/dd/yyyy h:m:s a", u"12/24/2008 13:30:0 PM",
         std::nullopt},
        {"slashes in a German date", u"dd.MM.yy HH:mm", u"24/12/08 18:30", std::nullopt},
        {"no time", u"dd.MM.yy HH:mm", u"24.12.08", std::nullopt},
        {"other separators", u"yyyy:MM:d", u"2008-12-25", std::nullopt},
        {"no date", u"yyyy:MM:d", u"garbage", std::nullopt},
        {"nothing", u"yyyy:MM:d", u"", std::nullopt},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(read(parserOf(row.pattern), row.text), row.expected);
    }
}

TEST(createDateFromText, doesNotFollowTheLanguage)
{
    const ScopedVariable language("LC_ALL", "ar_EG.UTF-8");
    const Parser parser = parserOf(u"MM/dd/yyyy h:m:s a");
    EXPECT_EQ(read(parser, u"12/24/2008 6:30:00 PM"), kChristmasEve);
}

TEST(createDateFromText, readsTheClockOfTheZoneAtTheMomentOfTheCall)
{
    const Parser parser = parserOf(u"dd.MM.yy HH:mm");
    const struct {
        const char* zone;
        std::int64_t offset;
    } rows[] = {{"Europe/Berlin", 3600},
                {"America/New_York", -18000},
                {"Asia/Kolkata", 19800},
                {"CET-1CEST", 3600}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.zone);
        const ScopedVariable zone("TZ", row.zone);
        EXPECT_EQ(read(parser, u"24.12.08 18:30"), kChristmasEve - row.offset);
    }
}

TEST(createDateFromText, takesTwoDigitYearsFromEightyYearsBackToTwentyAhead)
{
    const Parser parser = parserOf(u"yy");
    const std::int64_t now = std::time(nullptr);
    const int thisYear = std::gmtime(&now)->tm_year + 1900;
    for (int year = thisYear - 79; year < thisYear + 20; year++) {
        const int lastTwo = year % 100;
        const std::u16string text{static_cast<char16_t>(u'0' + lastTwo / 10),
                                  static_cast<char16_t>(u'0' + lastTwo % 10)};
        const std::optional<std::int64_t> instant = read(parser, text);
        ASSERT_TRUE(instant) << year;
        EXPECT_EQ(std::gmtime(&*instant)->tm_year + 1900, year);
    }
}

TEST(createDateFromText, readsNothingWithoutAParser)
{
    EXPECT_EQ(createDateFromText(nullptr, u"2008:12:25"), nullptr);
    releaseDateParser(nullptr);
}

TEST(createDateFromText, isNullWhenMemoryRunsOut)
{
    DateParser* parser = createDateParser(u"yyyy:MM:dd HH:mm:ss");
    EXPECT_GT(
        test::failEachRequest(
            [parser] {
                return ObjectHolder<TovDateRef>(createDateFromText(parser, u"2008:05:04 08:03:02"));
            },
            [](const ObjectHolder<TovDateRef>& date) { return date.get() == nullptr; }),
        1u);
    releaseDateParser(parser);
}
