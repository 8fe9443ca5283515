#include "lib/text/region_formats.h"

#include "lib/strings/string_holder.h"
#include "lib/text/date_format.h"
#include "lib/text/number_format.h"
#include "tests/support/texts.h"

#include <gtest/gtest.h>
#include <unicode/ucal.h>
#include <unicode/udat.h>
#include <unicode/uloc.h>
#include <unicode/unum.h>

#include <cmath>
#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <vector>

using namespace pinorama;

namespace {
// 2026-07-09 15:04:59
constexpr std::int64_t kAfternoon = 1783609499;
constexpr std::int64_t kBeginOf1904 = -2082844800;
constexpr std::int64_t kEndOf2040 = 2240611199;
constexpr int kRoom = 256;

std::u16string dateText(const char* locale, std::int64_t seconds)
{
    char16_t units[kRoom];
    const auto formats = regionFormats(locale);
    if (!formats) return u"-";
    return {units, writeDateAndTime(*formats, seconds, units)};
}

std::u16string numberText(const char* locale, double value, int fractionDigits)
{
    char16_t units[kRoom];
    const auto formats = regionFormats(locale);
    if (!formats) return u"-";
    return {units, writeNumber(*formats, value, fractionDigits, units)};
}

std::vector<std::string> localesOfICU()
{
    std::vector<std::string> locales;
    for (std::int32_t i = 0; i < uloc_countAvailable(); i++) {
        locales.emplace_back(uloc_getAvailable(i));
    }
    return locales;
}
}  // namespace

TEST(regionFormats, knowsTheLocalesOfMostPeople)
{
    for (const char* locale :
         {"en",    "en_US", "en_GB", "en_IN", "de",    "de_AT", "de_CH",      "fr",
          "fr_CA", "es",    "es_MX", "it",    "pt",    "pt_BR", "nl",         "sv",
          "da",    "nb",    "fi",    "pl",    "cs",    "hu",    "ro",         "ru",
          "uk",    "el",    "tr",    "he",    "ar",    "ar_EG", "hi",         "bn",
          "id",    "vi",    "ko",    "ja",    "zh_CN", "zh_TW", "sr_Latn_RS", "sr_Cyrl"}) {
        EXPECT_TRUE(regionFormats(locale)) << locale;
    }
}

TEST(regionFormats, leavesOtherCalendarsAndUnknownNamesToICU)
{
    for (const char* locale :
         {"fa_IR", "th", "xx_YY", "de_XX", "", "e", "enn", "en_US_and_more_than_any_name"}) {
        EXPECT_FALSE(regionFormats(locale)) << locale;
    }
}

// Which regions those are changes from one ICU to the next: Saudi Arabia's came to be Gregorian.
TEST(regionFormats, leavesEachRegionWithAnotherCalendarToICU)
{
    int others = 0;
    for (const std::string& locale : localesOfICU()) {
        UErrorCode status = U_ZERO_ERROR;
        const std::unique_ptr<UCalendar,
                              decltype([](UCalendar* calendar) { ucal_close(calendar); })>
            calendar(ucal_open(u"GMT", -1, locale.c_str(), UCAL_DEFAULT, &status));
        ASSERT_TRUE(U_SUCCESS(status)) << locale;
        const std::string_view type = ucal_getType(calendar.get(), &status);
        if (type == "gregorian") continue;
        others++;
        EXPECT_FALSE(regionFormats(locale)) << locale << ", " << type;
    }
    EXPECT_GT(others, 0);
}

// Patterns that ICU 72 to 78 have in common; others change with its data.
TEST(writeDateAndTime, writesEachField)
{
    const struct {
        const char* locale;
        std::int64_t seconds;
        const char16_t* expected;
    } rows[] = {
        {"en", kAfternoon, u"Jul 9, 2026, 3:04\u202fPM"},
        {"en", 0, u"Jan 1, 1970, 12:00\u202fAM"},
        {"en", 43200, u"Jan 1, 1970, 12:00\u202fPM"},
        {"en", kBeginOf1904, u"Jan 1, 1904, 12:00\u202fAM"},
        {"en", kEndOf2040, u"Dec 31, 2040, 11:59\u202fPM"},
        {"de", kAfternoon, u"09.07.2026, 15:04"},
        {"fr_CA", kAfternoon, u"9 juill. 2026, 15 h 04"},
        {"uk", kAfternoon, u"9 лип. 2026\u202fр., 15:04"},
        {"cs", 0, u"1. 1. 1970 0:00"},
        {"ko", kAfternoon, u"2026. 7. 9. 오후 3:04"},
        {"zh_TW", kAfternoon, u"2026年7月9日 下午3:04"},
        {"hi", kAfternoon, u"9 जुल॰ 2026, 3:04 pm"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.locale);
        EXPECT_EQ(dateText(row.locale, row.seconds), row.expected);
    }
}

TEST(writeDateAndTime, leavesOtherMomentsToICU)
{
    EXPECT_EQ(dateText("en", kBeginOf1904 - 1), u"");
    EXPECT_EQ(dateText("en", kEndOf2040 + 1), u"");
}

TEST(writeDateAndTime, needsRoom)
{
    char16_t units[18];
    const auto formats = regionFormats("de");
    ASSERT_TRUE(formats);
    EXPECT_EQ(writeDateAndTime(*formats, kAfternoon, std::span(units).first(17)), 17u);
    EXPECT_EQ(writeDateAndTime(*formats, kAfternoon, std::span(units).first(16)), 0u);
    EXPECT_EQ(writeDateAndTime(*formats, kAfternoon, {}), 0u);
}

TEST(writeNumber, roundsTheShortestDecimalToTheEvenDigit)
{
    const struct {
        double value;
        int fractionDigits;
        const char16_t* expected;
    } rows[] = {
        {0.0, 0, u"0"},
        {0.0, 1, u"0.0"},
        {0.04, 1, u"0.0"},
        {0.25, 1, u"0.2"},
        {0.35, 1, u"0.4"},
        {0.251, 1, u"0.3"},
        {2.675, 2, u"2.68"},
        {0.5, 0, u"0"},
        {1.5, 0, u"2"},
        {9.95, 1, u"10.0"},
        {999.96, 1, u"1,000.0"},
        {999999.5, 0, u"1,000,000"},
        {1e15, 1, u"1,000,000,000,000,000.0"},
        {5e-324, 3, u"0.000"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.value);
        EXPECT_EQ(numberText("en", row.value, row.fractionDigits), row.expected);
    }
}

TEST(writeNumber, groupsAndCountsAsTheRegionDoes)
{
    EXPECT_EQ(numberText("de", 123, 0), u"123");
    EXPECT_EQ(numberText("de", 1234567.5, 1), u"1.234.567,5");
    EXPECT_EQ(numberText("hi", 1234567, 0), u"12,34,567");
    EXPECT_EQ(numberText("ar_EG", 1234.5, 1), u"١٬٢٣٤٫٥");
    EXPECT_EQ(numberText("ccp", 12, 0), u"\U00011137\U00011138") << "digits beyond U+FFFF";
}

TEST(writeNumber, leavesOtherNumbersToICU)
{
    for (const double value : {-1.0, -0.0, 1.1e15, 1.0 / 0.0, 0.0 / 0.0}) {
        EXPECT_EQ(numberText("en", value, 1), u"") << value;
    }
    EXPECT_EQ(numberText("en", 1, -1), u"");
    EXPECT_EQ(numberText("en", 1, 10), u"");
}

TEST(writeNumber, needsRoom)
{
    char16_t units[8];
    const auto formats = regionFormats("en");
    ASSERT_TRUE(formats);
    EXPECT_EQ(writeNumber(*formats, 1234.5, 1, std::span(units).first(7)), 7u);
    EXPECT_EQ(writeNumber(*formats, 1234.5, 1, std::span(units).first(6)), 0u);
}

// Whichever way a text takes, it is the one that ICU gives.
TEST(createDateText, saysWhatICUSaysInEveryLocale)
{
    std::mt19937_64 random(20261121);
    std::uniform_int_distribution<std::int64_t> moments(kBeginOf1904, kEndOf2040);
    for (const std::string& locale : localesOfICU()) {
        SCOPED_TRACE(locale);
        UErrorCode status = U_ZERO_ERROR;
        const std::unique_ptr<UDateFormat,
                              decltype([](UDateFormat* format) { udat_close(format); })>
            format(udat_open(UDAT_SHORT, UDAT_MEDIUM, locale.c_str(), u"GMT", -1, nullptr, 0,
                             &status));
        ASSERT_TRUE(U_SUCCESS(status));
        for (int i = 0; i < 100; i++) {
            const std::int64_t moment = moments(random);
            char16_t units[kRoom];
            const int count = udat_format(format.get(), static_cast<double>(moment) * 1000.0, units,
                                          kRoom, nullptr, &status);
            const StringHolder text(createDateText(locale, DateStyle::dateAndTime, moment));
            ASSERT_EQ(unitsOf(text.get()),
                      std::u16string_view(units, static_cast<std::size_t>(count)));
        }
    }
}

TEST(createNumberText, saysWhatICUSaysInEveryLocale)
{
    std::mt19937_64 random(20261121);
    std::uniform_real_distribution<double> exponents(-3.0, 15.5);
    for (const std::string& locale : localesOfICU()) {
        SCOPED_TRACE(locale);
        UErrorCode status = U_ZERO_ERROR;
        const std::unique_ptr<UNumberFormat,
                              decltype([](UNumberFormat* format) { unum_close(format); })>
            format(unum_open(UNUM_DECIMAL, nullptr, 0, locale.c_str(), nullptr, &status));
        ASSERT_TRUE(U_SUCCESS(status));
        unum_setAttribute(format.get(), UNUM_MIN_FRACTION_DIGITS, 1);
        unum_setAttribute(format.get(), UNUM_MAX_FRACTION_DIGITS, 1);
        const std::unique_ptr<NumberFormat,
                              decltype([](NumberFormat* ours) { releaseNumberFormat(ours); })>
            ours(createNumberFormat(locale, 1));
        for (int i = 0; i < 100; i++) {
            // Half of them in steps of a twentieth, among which the ties are.
            double value = std::pow(10.0, exponents(random));
            if (i % 2 == 0) value = std::floor(value * 20.0) / 20.0;
            char16_t units[kRoom];
            const int count =
                unum_formatDouble(format.get(), value, units, kRoom, nullptr, &status);
            const StringHolder text(createNumberText(ours.get(), value));
            ASSERT_EQ(unitsOf(text.get()),
                      std::u16string_view(units, static_cast<std::size_t>(count)))
                << value;
        }
    }
}
