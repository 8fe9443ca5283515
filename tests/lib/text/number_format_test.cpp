#include "lib/text/number_format.h"

#include "tests/support/failing_memory.h"
#include "tests/support/texts.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>

using namespace pinorama;

using test::takeUTF8;

namespace {
struct FormatReleaser {
    void operator()(NumberFormat* format) const { releaseNumberFormat(format); }
};
using Format = std::unique_ptr<NumberFormat, FormatReleaser>;

std::optional<std::string> written(NumberFormat* format, std::int64_t value)
{
    return takeUTF8(createNumberText(format, value));
}

std::optional<std::string> written(NumberFormat* format, double value)
{
    return takeUTF8(createNumberText(format, value));
}
}  // namespace

TEST(createNumberText, groupsAsTheLanguageDoes)
{
    const struct {
        const char *locale, *whole, *fraction;
    } rows[] = {
        {"en", "-1,234,567", "1,234.5"},
        {"de", "-1.234.567", "1.234,5"},
        {"fr", "-1\u202f234\u202f567", "1\u202f234,5"},
        {"en_IN", "-12,34,567", "1,234.5"},
        {"es", "-1.234.567", "1.234,5"},
        {"pl", "-1\u00a0234\u00a0567", "1\u00a0234,5"},
        {"ar_EG", "\u061c-١٬٢٣٤٬٥٦٧", "١٬٢٣٤٫٥"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.locale);
        const Format whole(createNumberFormat(row.locale));
        const Format fraction(createNumberFormat(row.locale, 1));
        EXPECT_EQ(written(whole.get(), std::int64_t{-1234567}), row.whole);
        EXPECT_EQ(written(fraction.get(), 1234.5), row.fraction);
    }
}

TEST(createNumberText, writesNumbersOfAnySize)
{
    const Format fraction(createNumberFormat("en", 1));
    EXPECT_EQ(written(fraction.get(), 0.0), "0.0");
    EXPECT_EQ(written(fraction.get(), 0.25), "0.2");
    EXPECT_EQ(written(fraction.get(), 0.75), "0.8");
    EXPECT_EQ(written(fraction.get(), 1e15), "1,000,000,000,000,000.0");
    const Format whole(createNumberFormat("en"));
    EXPECT_EQ(written(whole.get(), std::numeric_limits<std::int64_t>::min()),
              "-9,223,372,036,854,775,808");
}

TEST(createNumberText, fallsBackForAnUnknownLanguage)
{
    const Format format(createNumberFormat("xx_YY"));
    EXPECT_EQ(written(format.get(), std::int64_t{1234}), "1,234");
}

TEST(createNumberText, isNullWithoutAFormatOrMemory)
{
    EXPECT_EQ(written(nullptr, std::int64_t{1}), std::nullopt);
    const Format fraction(createNumberFormat("en", 1));
    EXPECT_EQ(written(fraction.get(), 1e200), std::nullopt) << "more digits than any size has";
    EXPECT_EQ(written(fraction.get(), 1.0), "1.0") << "and then as before";
    releaseNumberFormat(nullptr);
}

TEST(createNumberFormat, isNullWhenMemoryRunsOut)
{
    const std::string locale = "en_US_of_a_name_that_takes_memory";
    const auto isNull = [](NumberFormat* format) {
        const bool result = format == nullptr;
        releaseNumberFormat(format);
        return result;
    };
    EXPECT_GT(test::failEachRequest([&] { return createNumberFormat(locale); }, isNull), 1u);
    EXPECT_GT(test::failEachRequest([&] { return createNumberFormat(locale, 1); }, isNull), 1u);
}
