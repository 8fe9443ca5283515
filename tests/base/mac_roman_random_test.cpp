// The conversions of MacRoman with all kinds of texts, beside ICU's.

#include "base/mac_roman.h"
#include "lib/text/byte_texts.h"
#include "tests/support/icu_texts.h"
#include "tests/support/random_texts.h"
#include "tests/support/texts.h"

#include <gtest/gtest.h>

using namespace pinorama;

TEST(encodeMacRoman, writesOneByteForEachUnit)
{
    int convertible = 0;
    test::forRandomTexts([&](const std::u16string& text) {
        const auto expected = test::macRomanByICU(text);
        ASSERT_EQ(isMacRoman(text), expected.has_value());
        if (!expected) return;
        convertible++;
        ASSERT_EQ(
            test::writtenInto<char>(text.size(), [&](char* dest) { encodeMacRoman(text, dest); }),
            *expected);
    });
    EXPECT_GT(convertible, 5000);
}

TEST(decodeMacRoman, writesOneUnitForEachByte)
{
    test::forRandomBytes([](const std::string& bytes) {
        ASSERT_EQ(test::writtenInto<char16_t>(bytes.size(),
                                              [&](char16_t* dest) { decodeMacRoman(bytes, dest); }),
                  test::macRomanUnitsByICU(bytes));
    });
}

TEST(createStringFromMacRoman, hasAUnitForEachByte)
{
    test::forRandomBytes([](const std::string& bytes) {
        const test::Text text(createStringFromMacRoman(bytes));
        ASSERT_EQ(unitsOf(text.get()), test::macRomanUnitsByICU(bytes));
    });
}
