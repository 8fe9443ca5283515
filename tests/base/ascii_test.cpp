#include "base/ascii.h"

#include <gtest/gtest.h>

#include <string>

using namespace pinorama;

TEST(asciiLength, endsAtTheFirstOtherCharacter)
{
    for (std::size_t length = 0; length <= 40; length++) {
        std::string bytes(length, 'x');
        std::u16string units(length, u'x');
        EXPECT_EQ(asciiLength(bytes), length);
        EXPECT_EQ(asciiLength(units), length);
        for (std::size_t at = 0; at < length; at++) {
            bytes[at] = static_cast<char>(0x80);
            units[at] = 0x80;
            ASSERT_EQ(asciiLength(bytes), at);
            ASSERT_EQ(asciiLength(units), at);
            bytes[at] = 0x7f;
            units[at] = 0x100;
            ASSERT_EQ(asciiLength(units), at);
            units[at] = 0x7f;
        }
    }
}

TEST(lengthBeforeNull, endsAtTheFirstNull)
{
    for (std::size_t length = 0; length <= 40; length++) {
        for (const char16_t other : {u'x', u'\u8000', u'\u0100', u'\u0001', u'\uffff'}) {
            std::u16string units(length, other);
            EXPECT_EQ(lengthBeforeNull(units), length);
            for (std::size_t at = length; at-- > 0;) {
                units[at] = 0;
                ASSERT_EQ(lengthBeforeNull(units), at);
            }
        }
    }
}

TEST(commonASCIILength, neverReachesADifferenceOrAnotherCharacter)
{
    const std::u16string same(40, u'x');
    EXPECT_GE(commonASCIILength(same, same), 37u);
    EXPECT_EQ(commonASCIILength(same, u""), 0u);
    for (std::size_t at = 0; at < same.size(); at++) {
        std::u16string other = same, beyond = same;
        other[at] = u'y';
        beyond[at] = u'\u00e9';
        for (const std::size_t length :
             {commonASCIILength(same, other), commonASCIILength(beyond, beyond)}) {
            ASSERT_LE(length, at);
            ASSERT_GE(length + 4, at);
        }
    }
}

TEST(widenASCII, copiesAnyLength)
{
    for (std::size_t length = 0; length <= 40; length++) {
        std::string bytes;
        for (std::size_t i = 0; i < length; i++) bytes += static_cast<char>('0' + i);
        std::u16string units(length + 1, u'?');
        widenASCII(bytes, units.data());
        ASSERT_EQ(units, std::u16string(bytes.begin(), bytes.end()) + u'?');
        std::string back(length + 1, '?');
        narrowASCII(std::u16string_view(units).substr(0, length), back.data());
        ASSERT_EQ(back, bytes + '?');
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
