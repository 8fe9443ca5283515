#include "lib/strings/tov_display.h"

#include "base/alloc.h"
#include "lib/strings/string_holder.h"
#include "lib/ui/string_tables.h"
#include "tests/support/environment.h"
#include "tests/support/failing_memory.h"
#include "tests/support/texts.h"

#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <limits>
#include <string>

using namespace pinorama;

using test::ScopedVariable;
using test::takeUTF8;
using test::text;

namespace {
constexpr std::uint64_t kKiB = 1024;
constexpr std::uint64_t kMiB = 1024 * kKiB;
constexpr std::uint64_t kGiB = 1024 * kMiB;
constexpr std::uint64_t kTiB = 1024 * kGiB;
constexpr std::uint64_t kMaxCount = std::numeric_limits<std::uint64_t>::max();

// Unit words of the test's own, and formatters of the given language.
class Words {
public:
    explicit Words(const char* locale = "en_US.UTF-8") : locale_("LC_ALL", locale)
    {
        std::filesystem::create_directories(folder_.file("en"));
        folder_.write("en/Localizable.strings",
                      "\"STR#1001:46\" = \" kilo\";\n\"STR#1001:3\" = \" mega\";\n"
                      "\"STR#1001:31\" = \" giga\";\n\"STR#1001:123\" = \" tera\";\n"
                      "\"STR#1001:93\" = \"bytes\";\n");
        const auto identifier = text("test.words");
        iuRegisterBundle(identifier.get(), folder_.path().c_str(), true);
        initStringBundle(identifier.get());
        tovStringInitString();
    }
    ~Words() { initStringBundle(nullptr); }

private:
    ScopedVariable locale_;
    test::TemporaryFolder folder_;
};

// CLDR has put a narrow space before AM and PM since its version 42; older and newer texts differ
// in nothing else.
std::optional<std::string> withPlainSpaces(std::optional<std::string> text)
{
    const std::string narrow = "\u202f";
    for (std::size_t at = 0; text && (at = text->find(narrow)) != std::string::npos;) {
        text->replace(at, narrow.size(), " ");
    }
    return text;
}

std::optional<std::string> dateText(std::uint32_t macTime, std::uint8_t withTime,
                                    std::uint8_t withYear)
{
    return withPlainSpaces(takeUTF8(TovStringMakeDateTimeString(macTime, withTime, withYear)));
}

constexpr std::uint32_t kNewYear2000 = 3029529600;  // 2000-01-01 00:00
}  // namespace

TEST(TovStringGetFromTable, isTheNumberedTable)
{
    const Words words;
    EXPECT_EQ(takeUTF8(TovStringGetFromTable(1001, 93)), "bytes");
    EXPECT_EQ(takeUTF8(TovStringGetFromTable(-1, -2)), "STR#-1:-2");
}

TEST(TovStringMakeSizeString, hasOneDecimalAndTheUnitWord)
{
    const Words words;
    const struct {
        const char* name;
        std::uint64_t bytes;
        const char* expected;
    } rows[] = {
        {"nothing", 0, "0.0 kilo"},
        {"half", 512, "0.5 kilo"},
        {"one byte", 1, "0.0 kilo"},
        {"one", kKiB, "1.0 kilo"},
        {"tie to even, down", 256, "0.2 kilo"},
        {"tie to even, up", 768, "0.8 kilo"},
        {"tie to even above one", 1280, "1.2 kilo"},
        {"megas", 1049600, "1.0 mega"},
        {"gigas", 1610612736, "1.5 giga"},
        {"teras", 5 * kTiB / 2, "2.5 tera"},
        {"most", kMaxCount, "16,777,216.0 tera"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(takeUTF8(TovStringMakeSizeString(row.bytes)), row.expected);
    }
}

TEST(TovStringMakeSizeString, changesUnitsOneStepLate)
{
    const Words words;
    const struct {
        std::uint64_t bytes;
        const char* expected;
    } rows[] = {
        {kMiB, "1,024.0 kilo"}, {kMiB + kKiB - 1, "1,025.0 kilo"}, {kMiB + kKiB, "1.0 mega"},
        {kGiB, "1,024.0 mega"}, {kGiB + kKiB - 1, "1,024.0 mega"}, {kGiB + kKiB, "1.0 giga"},
        {kTiB, "1,024.0 giga"}, {kTiB + kKiB - 1, "1,024.0 giga"}, {kTiB + kKiB, "1.0 tera"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.bytes);
        EXPECT_EQ(takeUTF8(TovStringMakeSizeString(row.bytes)), row.expected);
    }
}

TEST(TovStringMakeSizeString, followsTheLanguage)
{
    const struct {
        const char *locale, *expected;
    } rows[] = {
        {"de_DE.UTF-8", "1.024,0 kilo"}, {"fr_FR.UTF-8", "1\u202f024,0 kilo"},
        {"sv_SE", "1\u00a0024,0 kilo"},  {"C", "1,024.0 kilo"},
        {"POSIX", "1,024.0 kilo"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.locale);
        const Words words(row.locale);
        EXPECT_EQ(takeUTF8(TovStringMakeSizeString(kMiB)), row.expected);
    }
}

TEST(TovStringMakeSizeString, showsTheKeyOfAMissingWord)
{
    tovStringInitString();
    ASSERT_EQ(initStringBundle(nullptr), nullptr);
    EXPECT_EQ(takeUTF8(TovStringMakeSizeString(512)), "0.5STR#1001:46");
}

TEST(makeSmallSizeString, truncates)
{
    const struct {
        std::uint64_t bytes;
        const char* expected;
    } rows[] = {
        {0, "0 K"},
        {1, "1 K"},
        {1023, "1 K"},
        {1024, "1 K"},
        {2047, "1 K"},
        {2048, "2 K"},
        {kMiB, "1024 K"},
        {kMiB + kKiB - 1, "1024 K"},
        {kMiB + kKiB, "1 M"},
        {kGiB, "1024 M"},
        {kGiB + kKiB, "1 G"},
        {5000000000, "4 G"},
        {kTiB, "1024 G"},
        {kTiB + kKiB, "1 T"},
        {kMaxCount, "16777215 T"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.bytes);
        EXPECT_EQ(takeUTF8(makeSmallSizeString(row.bytes)), row.expected);
    }
}

TEST(TovMakeDoubleSizeString, showsSizeAndExactCount)
{
    const Words words;
    EXPECT_EQ(takeUTF8(TovMakeDoubleSizeString(0)), "0.0 kilo (0 bytes)");
    EXPECT_EQ(takeUTF8(TovMakeDoubleSizeString(1610612736)), "1.5 giga (1,610,612,736 bytes)");
}

TEST(TovMakeNumberStringWithSeparators, groupsDigits)
{
    const Words words;
    EXPECT_EQ(takeUTF8(TovMakeNumberStringWithSeparators(0)), "0");
    EXPECT_EQ(takeUTF8(TovMakeNumberStringWithSeparators(999)), "999");
    EXPECT_EQ(takeUTF8(TovMakeNumberStringWithSeparators(1000)), "1,000");
    EXPECT_EQ(takeUTF8(TovMakeNumberStringWithSeparators(-1234567)), "-1,234,567");
    EXPECT_EQ(takeUTF8(TovMakeNumberStringWithSeparators(std::numeric_limits<std::int64_t>::min())),
              "-9,223,372,036,854,775,808");
}

TEST(tovStringInitString, usesTheLanguageOfThatMoment)
{
    {
        const ScopedVariable german("LC_ALL", "de_DE");
        tovStringInitString();
    }
    EXPECT_EQ(takeUTF8(TovMakeNumberStringWithSeparators(1234)), "1.234");
    tovStringInitString();
    EXPECT_EQ(takeUTF8(TovMakeNumberStringWithSeparators(1234)), "1,234");
    EXPECT_NE(gThousandFormatter, nullptr);
    EXPECT_NE(gOneFractionDigitFormatter, nullptr);
    EXPECT_NE(gThousandFormatter, gOneFractionDigitFormatter);
}

TEST(TovMakeNumberStringWithSeparators, worksBeforeTheFormattersAreMade)
{
    releaseNumberFormat(gThousandFormatter);
    gThousandFormatter = nullptr;
    EXPECT_EQ(takeUTF8(TovMakeNumberStringWithSeparators(1234)), "1,234");
}

TEST(TovMakeNumberString, printsPlainDigits)
{
    EXPECT_EQ(takeUTF8(TovMakeNumberString(0)), "0");
    EXPECT_EQ(takeUTF8(TovMakeNumberString(kMaxCount)), "18446744073709551615");
}

TEST(TovStringMakePaddedNumberString, padsSingleDigitsOnly)
{
    const struct {
        std::int32_t value;
        const char* expected;
    } rows[] = {
        {0, "00"},
        {7, "07"},
        {9, "09"},
        {10, "10"},
        {123, "123"},
        {-1, "-1"},
        {-5, "-5"},
        {std::numeric_limits<std::int32_t>::max(), "2147483647"},
        {std::numeric_limits<std::int32_t>::min(), "-2147483648"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.value);
        EXPECT_EQ(takeUTF8(TovStringMakePaddedNumberString(row.value)), row.expected);
    }
}

TEST(TovStringMakeDurationString, showsHoursFromAFullHourOnly)
{
    const struct {
        std::uint32_t seconds;
        const char* expected;
    } rows[] = {
        {0, "0:00"},         {59, "0:59"},
        {60, "1:00"},        {754, "12:34"},
        {3599, "59:59"},     {3600, "60:00"},
        {3601, "1:00:01"},   {3661, "1:01:01"},
        {36000, "10:00:00"}, {4294967295u, "1193046:28:15"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.seconds);
        EXPECT_EQ(takeUTF8(TovStringMakeDurationString(row.seconds)), row.expected);
    }
}

TEST(TovStringMakeDateTimeString, followsItsFlags)
{
    EXPECT_EQ(dateText(kNewYear2000, 1, 1), "Jan 1, 2000, 12:00 AM");
    EXPECT_EQ(dateText(kNewYear2000, 0, 1), "Jan 1, 2000");
    EXPECT_EQ(dateText(kNewYear2000, 0, 0), "1 January");
    EXPECT_EQ(dateText(kNewYear2000, 1, 0), "1 January") << "no time without the year";
    EXPECT_EQ(dateText(kNewYear2000, 255, 255), "Jan 1, 2000, 12:00 AM");
}

TEST(TovStringMakeDateTimeString, writesTheWholeRange)
{
    EXPECT_EQ(dateText(0, 1, 1), "Jan 1, 1904, 12:00 AM");
    EXPECT_EQ(dateText(2082844800u, 1, 1), "Jan 1, 1970, 12:00 AM");
    EXPECT_EQ(dateText(4294967295u, 1, 1), "Feb 6, 2040, 6:28 AM");
    EXPECT_EQ(dateText(kNewYear2000 + 13 * 3600 + 59 * 60 + 59, 1, 1), "Jan 1, 2000, 1:59 PM");
    EXPECT_EQ(dateText(kNewYear2000 - 1, 1, 1), "Dec 31, 1999, 11:59 PM");
}

TEST(TovStringMakeDateTimeString, isTheSameInEveryTimeZone)
{
    // 2000-03-26 02:30 does not exist on the clocks of Berlin, 2000-10-29 02:30 exists twice.
    for (const char* zone :
         {"UTC", "Europe/Berlin", "America/Los_Angeles", "Asia/Kolkata", "Pacific/Kiritimati"}) {
        SCOPED_TRACE(zone);
        const ScopedVariable timeZone("TZ", zone);
        EXPECT_EQ(dateText(kNewYear2000, 1, 1), "Jan 1, 2000, 12:00 AM");
        EXPECT_EQ(dateText(kNewYear2000 + 85 * 86400 + 9000, 1, 1), "Mar 26, 2000, 2:30 AM");
        EXPECT_EQ(dateText(kNewYear2000 + 302 * 86400 + 9000, 1, 1), "Oct 29, 2000, 2:30 AM");
    }
}

TEST(TovStringMakeDateTimeString, followsTheLanguage)
{
    const ScopedVariable all("LC_ALL", nullptr), time("LC_TIME", "de_DE.UTF-8"),
        lang("LANG", "fr_FR.UTF-8");
    EXPECT_EQ(dateText(kNewYear2000, 1, 1), "01.01.2000, 00:00");
    EXPECT_EQ(dateText(kNewYear2000, 0, 0), "1 Januar");
    const ScopedVariable posix("LC_ALL", "POSIX");
    EXPECT_EQ(dateText(kNewYear2000, 1, 1), "Jan 1, 2000, 12:00 AM");
}

TEST(TovStringMakeOSTypeString, keepsTheOrderOfMemory)
{
    const char bytes[] = {'a', 'B', '\x8e', '\0'};
    std::uint32_t code = 0;
    std::memcpy(&code, bytes, sizeof code);
    EXPECT_EQ(takeUTF8(TovStringMakeOSTypeString(code)), std::string("aBé\0", 5));
    EXPECT_EQ(takeUTF8(TovStringMakeOSTypeString(0)), std::string(4, '\0'));
}

TEST(TovStringMakeSizeString, givesNullOrAKeyWhenMemoryRunsOut)
{
    // The tables answer with the key when they cannot make the word.
    const Words words;
    ASSERT_EQ(takeUTF8(TovMakeDoubleSizeString(512)), "0.5 kilo (512 bytes)");
    for (std::uint64_t nth = 1;; nth++) {
        baseFailAllocation(nth);
        const test::Text text(TovMakeDoubleSizeString(512));
        const bool ranOut = baseAllocationHasFailed();
        baseFailAllocation(0);
        const auto result = test::utf8(text.get());
        if (!ranOut) {
            EXPECT_GE(nth, 6u);
            break;
        }
        EXPECT_TRUE(!result || result->find("STR#1001:") != std::string::npos) << *result;
    }
    baseFailAllocation(0);
}

TEST(TovStringMakeSizeString, givesNullWhenMemoryRunsOut)
{
    const Words words;
    const auto failing = [](auto make) {
        std::uint64_t failures = 0;
        for (std::uint64_t nth = 1;; nth++) {
            baseFailAllocation(nth);
            const StringHolder result(make());
            if (!baseAllocationHasFailed()) break;
            EXPECT_FALSE(result);
            failures++;
        }
        baseFailAllocation(0);
        EXPECT_GE(failures, 1u);
    };
    failing([] { return makeSmallSizeString(1); });
    failing([] { return TovMakeNumberStringWithSeparators(1); });
    failing([] { return TovMakeNumberString(1); });
    failing([] { return TovStringMakePaddedNumberString(1); });
    failing([] { return TovStringMakeDurationString(1); });
    failing([] { return TovStringMakeDateTimeString(1, 1, 1); });
    failing([] { return TovStringMakeOSTypeString(1); });
}

TEST(TovStringMakeSizeString, isNullAtEveryRequestThatFails)
{
    const auto forgetFormatters = [] {
        releaseNumberFormat(gThousandFormatter);
        releaseNumberFormat(gOneFractionDigitFormatter);
        gThousandFormatter = gOneFractionDigitFormatter = nullptr;
    };
    const auto each = [&](auto make) {
        return test::failEachRequest([&]() -> TovStringRef {
            forgetFormatters();
            return make();
        });
    };
    EXPECT_GT(each([] { return TovStringMakeSizeString(1500000); }), 3u);
    EXPECT_GT(each([] { return TovMakeDoubleSizeString(1500000); }), 3u);
    EXPECT_GT(each([] { return TovMakeNumberStringWithSeparators(1500000); }), 1u);
    tovStringInitString();
}

TEST(TovStringMakeDateTimeString, isNullAtEveryRequestThatFails)
{
    EXPECT_GT(test::failEachRequest([] { return TovStringMakeDateTimeString(3000000000u, 1, 1); }),
              0u);
    EXPECT_GT(test::failEachRequest([] { return TovStringMakeDateTimeString(3000000000u, 0, 0); }),
              0u);
}
