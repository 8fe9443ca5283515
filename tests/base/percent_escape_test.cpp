#include "base/percent_escape.h"

#include <gtest/gtest.h>

using namespace pinorama;

TEST(percentEscaped, keepsLettersDigitsAndTheMarksOfItsStandard)
{
    const struct {
        const char* name;
        std::string_view text, marks, expected;
    } rows[] = {
        {"nothing", "", kUnreservedRFC3986, ""},
        {"plain", "azAZ09-._~", kUnreservedRFC3986, "azAZ09-._~"},
        {"marks of the older standard", "!*'()", kUnreservedRFC2396, "!*'()"},
        {"they are reserved in the newer one", "!*'()", kUnreservedRFC3986, "%21%2A%27%28%29"},
        {"no marks", "a-b", "", "a%2Db"},
        {"the percent sign", "%41", kUnreservedRFC3986, "%2541"},
        {"neighbours of letters and digits", "/:@[`{", "", "%2F%3A%40%5B%60%7B"},
        {"bytes beyond ASCII", "\x80\xff", kUnreservedRFC2396, "%80%FF"},
        {"a zero byte", std::string_view("\0", 1), kUnreservedRFC2396, "%00"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(percentEscaped(row.text, row.marks), row.expected);
    }
}

TEST(isPlainInURI, doesNotTakeAUnitForTheCharacterInItsLowByte)
{
    EXPECT_TRUE(isPlainInURI(u'-', kUnreservedRFC3986));
    EXPECT_FALSE(isPlainInURI(u'\u012d', kUnreservedRFC3986));
    EXPECT_FALSE(isPlainInURI(u'\u0141', kUnreservedRFC3986));
}

TEST(percentEscapedByte, isMinusOneWithoutAWholeEscape)
{
    const struct {
        std::string_view text;
        int expected;
    } rows[] = {
        {"%20", 0x20}, {"%aF", 0xaf}, {"%FFx", 0xff}, {"%00", 0},  {"", -1},    {"%", -1},
        {"%2", -1},    {"%2g", -1},   {"%g2", -1},    {"% 2", -1}, {"x20", -1}, {"%-1", -1},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(percentEscapedByte(row.text), row.expected);
        const std::u16string units(row.text.begin(), row.text.end());
        EXPECT_EQ(percentEscapedByte(std::u16string_view(units)), row.expected);
    }
    EXPECT_EQ(percentEscapedByte(std::u16string_view(u"%\u01320")), -1);
}
