#include "lib/conv/text_values.h"

#include "lib/objects/collections.h"
#include "lib/objects/object_holder.h"
#include "lib/objects/values.h"
#include "tests/support/environment.h"
#include "tests/support/failing_memory.h"
#include "tests/support/texts.h"

#include <gtest/gtest.h>

#include <cstring>
#include <optional>
#include <string>
#include <utility>

using namespace pinorama;

namespace {
using test::ScopedVariable;
using test::takeUTF8;
using test::text;

// The code whose bytes in memory are `characters`.
std::uint32_t codeOf(const char (&characters)[5])
{
    std::uint32_t code = 0;
    std::memcpy(&code, characters, sizeof code);
    return code;
}

VardenTime german(std::string_view utf8)
{
    const test::Text key = text("taken");
    const test::Text value = text(utf8);
    const ObjectHolder<TovDictionaryRef> dictionary(TovDictionaryCreate());
    TovDictionarySetValue(dictionary.get(), key.get(), value.get());
    return convGetGermanDateTimeAsVDTime(dictionary.get(), key.get());
}

VardenTime american(std::string_view date, std::string_view time)
{
    return convGetVDTimeFromDateAndTimeString(text(date).get(), text(time).get());
}

VardenTime minutes(std::uint16_t year, std::uint16_t month, std::uint16_t day,
                   std::uint32_t hour = 0, std::uint32_t minute = 0)
{
    return makeVardenTime(year, month, day) + hour * 60 + minute;
}
}  // namespace

TEST(convGetSizeFromStringWithUnit, readsANumberAndItsUnit)
{
    const struct {
        const char* text;
        std::uint64_t expected;
    } rows[] = {
        {"1.5 MB", 1572864},
        {"12 bytes", 12},
        {"3 GB", 3221225472},
        {"2 KB", 2048},
        {"0.5 KB", 512},
        {"  7 bytes", 7},
        {"0 GB", 0},
        {"1e3 bytes", 1000},
        {"1.9 bytes", 1},     // fractions are dropped
        {"1,5 MB", 1048576},  // a comma ends the number in every locale
        {"12bytes", 1},       // the character in front of the unit is not looked at
        {"1.5MB", 1048576},
        {"5KB", 0},
        {"10 kb", 0},  // units are written exactly so
        {"10 Kb", 0},
        {"10 BYTES", 0},
        {"10", 0},
        {"10 TB", 0},
        {"10 MB ", 0},
        {"bytes", 0},  // nothing but the unit
        {" bytes", 0},
        {"KB", 0},
        {" KB", 0},
        {"", 0},
        {"1 MB MB", 0},  // the first MB does not end the text
        {"1 KB MB", 1048576},
        {"MB 1 MB", 0},
        {"many bytes", 0},
        {"-5 KB", 18446744073709546496u},
        {"-0.5 bytes", 0},
        {"9223372036854775808 bytes", 9223372036854775808u},
        {"17179869183 GB", 18446744072635809792u},
        {"17179869184 GB", 18446744073709551615u},
        {"1e300 GB", 18446744073709551615u},
        {"1e999 bytes", 18446744073709551615u},
        {"-1e300 GB", 9223372036854775808u},
    };
    for (const char* locale : {"C", "de_DE.UTF-8"}) {
        const ScopedVariable language("LC_ALL", locale);
        for (const auto& row : rows) {
            SCOPED_TRACE(row.text);
            EXPECT_EQ(convGetSizeFromStringWithUnit(text(row.text).get()), row.expected);
        }
    }
    EXPECT_EQ(convGetSizeFromStringWithUnit(nullptr), 0u);
}

TEST(convStringToOSType, laysTheCharactersDownInMemoryOrder)
{
    const struct {
        const char* text;
        std::uint32_t expected;
    } rows[] = {
        {"TEXT", codeOf("TEXT")},
        {"TEXTURE", codeOf("TEXT")},
        {"\u00e4bcd", codeOf("\x8a"
                             "bcd")},
        {"a\u20acbc", codeOf("a\xdb"
                             "bc")},
        {"a\u65e5bc", codeOf("a bc")},
        {"ab\U0001f600", codeOf("ab  ")},  // two units
        {"TE", 0},
        {"abc", 0},
        {"", 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(convStringToOSType(text(row.text).get()), row.expected);
    }
    EXPECT_EQ(convStringToOSType(nullptr), 0u);
}

TEST(convOSTypeToString, undoesConvStringToOSType)
{
    for (const char* characters : {"TEXT", "\u00e4\u00f6\u00fc\u00df", "    ", "JPEG", "8BIM"}) {
        SCOPED_TRACE(characters);
        EXPECT_EQ(takeUTF8(convOSTypeToString(convStringToOSType(text(characters).get()))),
                  characters);
    }
}

TEST(convOSTypeToString, endsAtAZeroByte)
{
    EXPECT_EQ(takeUTF8(convOSTypeToString(codeOf("ab\0c"))), "ab");
    EXPECT_EQ(takeUTF8(convOSTypeToString(codeOf("abc\0"))), "abc");
    EXPECT_EQ(takeUTF8(convOSTypeToString(0)), "");
}

TEST(convVDVersionToString, showsFamilyAndDigits)
{
    const struct {
        std::uint32_t version;
        const char* expected;
    } rows[] = {
        {0x57010203, "Brennick 1.2.3"},      {0x00050001, "Skallion 5.0.1"},
        {0x56010203, "Skallion 1.2.3"},      {0x77010203, "Skallion 1.2.3"},
        {0xff090909, "Skallion 9.9.9"},      {0x570a0b0c, "Brennick :.;.<"},
        {0x57500000, "Brennick \u00c4.0.0"},  // 48 + 80 = 128
        {0x57d00102, "Brennick .1.2"},        // 48 + 208 = 256, which is 0
        {0x57d10102, "Brennick \x01.1.2"},   {0x57ff0000, "Brennick /.0.0"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.version);
        EXPECT_EQ(takeUTF8(convVDVersionToString(row.version)), row.expected);
    }
}

TEST(convRationalToFloat, dividesTheLowHalfByTheHighHalf)
{
    EXPECT_EQ(convRationalToFloat(0x00020001), 0.5);
    EXPECT_EQ(convRationalToFloat(0x00010002), 2.0);
    EXPECT_EQ(convRationalToFloat(0x00030001), 1.0 / 3.0);
    EXPECT_EQ(convRationalToFloat(0xffffffff), 1.0);
    EXPECT_EQ(convRationalToFloat(0x00020000), 0.0);
    EXPECT_EQ(convRationalToFloat(0x00000002), 0.0);
    EXPECT_EQ(convRationalToFloat(0), 0.0);
}

TEST(convGetGermanDateTimeAsVDTime, readsDayMonthYear)
{
    convInit();
    EXPECT_EQ(german("24.12.08 18:30"), minutes(2008, 12, 24, 18, 30));
    EXPECT_EQ(german("24.12.2008 18:30"), minutes(2008, 12, 24, 18, 30));
    EXPECT_EQ(german("01.02.99 00:00"), minutes(1999, 2, 1));
    EXPECT_EQ(german("24.12.08"), 0u);
    EXPECT_EQ(german("12/24/08 18:30"), 0u);
    EXPECT_EQ(german("32.12.08 18:30"), 0u);
    EXPECT_EQ(german(""), 0u);
}

TEST(convGetGermanDateTimeAsVDTime, needsATextInADictionary)
{
    convInit();
    const test::Text key = text("taken");
    const ObjectHolder<TovDictionaryRef> dictionary(TovDictionaryCreate());
    const ObjectHolder<TovNumberRef> number(TovNumberCreateSInt64(24));
    EXPECT_EQ(convGetGermanDateTimeAsVDTime(nullptr, key.get()), 0u);
    EXPECT_EQ(convGetGermanDateTimeAsVDTime(key.get(), key.get()), 0u);
    EXPECT_EQ(convGetGermanDateTimeAsVDTime(dictionary.get(), key.get()), 0u);
    TovDictionarySetValue(dictionary.get(), key.get(), number.get());
    EXPECT_EQ(convGetGermanDateTimeAsVDTime(dictionary.get(), key.get()), 0u);
    EXPECT_EQ(convGetGermanDateTimeAsVDTime(dictionary.get(), nullptr), 0u);
}

TEST(convGetVDTimeFromDateAndTimeString, readsMonthDayYearAndTwelveHours)
{
    convInit();
    EXPECT_EQ(american("12/24/2008", "6:30:00 PM"), minutes(2008, 12, 24, 18, 30));
    EXPECT_EQ(american("12/24/2008", "6:30:59 AM"), minutes(2008, 12, 24, 6, 30));
    EXPECT_EQ(american("12/24/2008", "12:00:00 AM"), minutes(2008, 12, 24));
    EXPECT_EQ(american("12/24/2008", "12:00:00 PM"), minutes(2008, 12, 24, 12));
    EXPECT_EQ(american("12/24/2008", ""), 0u);
    EXPECT_EQ(american("", "6:30:00 PM"), 0u);
    EXPECT_EQ(american("24/12/2008", "6:30:00 PM"), 0u);
    EXPECT_EQ(convGetVDTimeFromDateAndTimeString(nullptr, text("6:30:00 PM").get()), 0u);
    EXPECT_EQ(convGetVDTimeFromDateAndTimeString(text("12/24/2008").get(), nullptr), 0u);
}

TEST(convConvertiViewDate, readsYearMonthDay)
{
    convInit();
    EXPECT_EQ(convConvertiViewDate(text("2008:12:24").get()), minutes(2008, 12, 24));
    EXPECT_EQ(convConvertiViewDate(text("2008:12:4").get()), minutes(2008, 12, 4));
    EXPECT_EQ(convConvertiViewDate(text("0000:00:00").get()), 0u);
    EXPECT_EQ(convConvertiViewDate(text("yesterday").get()), 0u);
    EXPECT_EQ(convConvertiViewDate(text("").get()), 0u);
    EXPECT_EQ(convConvertiViewDate(nullptr), 0u);
}

TEST(convConvertiViewDateTime, readsDateAndTime)
{
    convInit();
    EXPECT_EQ(convConvertiViewDateTime(text("2008:12:24 18:30:59").get()),
              minutes(2008, 12, 24, 18, 30));
    EXPECT_EQ(convConvertiViewDateTime(text("2008:12:24").get()), 0u);
    EXPECT_EQ(convConvertiViewDateTime(nullptr), 0u);
}

TEST(convConvertiViewDateTime, readsTheLocalClockAndCountsOnTheClockOfUTC)
{
    convInit();
    const struct {
        const char* zone;
        std::int32_t behind;  // minutes
    } rows[] = {
        {"UTC", 0}, {"Europe/Berlin", 60}, {"America/New_York", -300}, {"Asia/Kolkata", 330}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.zone);
        const ScopedVariable zone("TZ", row.zone);
        const VardenTime expected =
            minutes(2008, 12, 24, 18, 30) - static_cast<std::uint32_t>(row.behind);
        EXPECT_EQ(convConvertiViewDateTime(text("2008:12:24 18:30:00").get()), expected);
        EXPECT_EQ(german("24.12.08 18:30"), expected);
        EXPECT_EQ(american("12/24/2008", "6:30:00 PM"), expected);
    }
}

TEST(convConvertiViewDate, readsNothingBeforeConvInit)
{
    // Whoever ran before in this process may have called it.
    DateParser** const readers[] = {&gGermanDateFormatter, &gADCDateFormatter, &gIVIEWDateFormatter,
                                    &gIVIEWDateFormatter2};
    DateParser* kept[4];
    for (int i = 0; i < 4; i++) kept[i] = std::exchange(*readers[i], nullptr);
    EXPECT_EQ(convConvertiViewDate(text("2008:12:24").get()), 0u);
    EXPECT_EQ(convConvertiViewDateTime(text("2008:12:24 18:30:00").get()), 0u);
    EXPECT_EQ(german("24.12.08 18:30"), 0u);
    EXPECT_EQ(american("12/24/2008", "6:30:00 PM"), 0u);
    for (int i = 0; i < 4; i++) *readers[i] = kept[i];
}

TEST(convConvertiViewDuration, readsThreeNumbersAtFixedIndexes)
{
    const struct {
        const char* text;
        std::uint32_t expected;
    } rows[] = {
        {"01:02:03", 3723},
        {"00:90:00", 5400},
        {"99:99:99", 362439},
        {"00:00:00", 0},
        {"01x02y03", 3723},  // separators are not looked at
        {"01:02:03.5", 3723},
        {"1:02:03", 3600 + 2 * 60 + 3},  // "1:", "2:", "3"
        {"01:02", 3720},
        {"01", 3600},
        {"", 0},
        {"ab:cd:ef", 0},
        {"-1:00:01", 4294963697u},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(convConvertiViewDuration(text(row.text).get()), row.expected);
    }
    EXPECT_EQ(convConvertiViewDuration(nullptr), 0u);
}

TEST(convGetVDTimeFromDateAndTimeString, isZeroWhenMemoryRunsOut)
{
    convInit();
    const test::Text date = test::text("05/04/2008"), time = test::text("8:03:02 AM");
    EXPECT_GT(test::failEachRequest(
                  [&] { return convGetVDTimeFromDateAndTimeString(date.get(), time.get()); },
                  [](VardenTime made) { return made == 0; }),
              1u);
}

TEST(convVDVersionToString, isNullWhenMemoryRunsOut)
{
    EXPECT_GT(test::failEachRequest([] { return convVDVersionToString(0x57050001); }), 0u);
}
