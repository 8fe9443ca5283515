#include "base/ascii.h"

#include <gtest/gtest.h>

#include <string>

using namespace pinorama;

TEST(isASCII, isTrueBelow0x80)
{
    for (const char16_t unit : {u'\0', u'\u0001', u'x', u'\u007f'}) EXPECT_TRUE(isASCII(unit));
    for (const char16_t unit : {u'\u0080', u'\u00ff', u'\u0100', u'\uffff'}) {
        EXPECT_FALSE(isASCII(unit));
    }
}

TEST(isASCII, findsAnotherCharacterAnywhere)
{
    for (std::size_t length = 0; length <= 40; length++) {
        std::u16string units(length, u'x');
        EXPECT_TRUE(isASCII(units));
        for (std::size_t at = 0; at < length; at++) {
            units[at] = 0x80;
            ASSERT_FALSE(isASCII(units));
            units[at] = u'x';
        }
    }
}

TEST(foldedASCII, changesCapitalLettersOnly)
{
    for (char16_t unit = 0; unit < 0x100; unit++) {
        const bool isCapital = unit >= u'A' && unit <= u'Z';
        ASSERT_EQ(foldedASCII(unit), isCapital ? unit + 32 : unit);
    }
}

TEST(hexDigitValue, knowsBothCasesAndNothingElse)
{
    for (int value = 0; value < 16; value++) {
        EXPECT_EQ(hexDigitValue(kHexDigits[value]), value);
        EXPECT_EQ(hexDigitValue(kLowerHexDigits[value]), value);
    }
    for (const char c : {'/', ':', '@', 'G', '`', 'g', '\0', '\xc1'}) {
        EXPECT_EQ(hexDigitValue(c), -1);
    }
    EXPECT_EQ(hexDigitValue(u'\u0131'), -1);
}

TEST(isASCIIAlphanumeric, isTrueForLettersAndDigitsOnly)
{
    for (const char c : {'0', '9', 'A', 'Z', 'a', 'z'}) EXPECT_TRUE(isASCIIAlphanumeric(c));
    for (const char c : {'/', ':', '@', '[', '`', '{', '\xe1'})
        EXPECT_FALSE(isASCIIAlphanumeric(c));
    EXPECT_FALSE(isASCIIAlphanumeric(u'\u0141'));
}
