#include "globe/address_escape.h"

#include "tests/support/failing_memory.h"
#include "tests/support/texts.h"

#include <gtest/gtest.h>

using namespace pinorama;

namespace {
std::string escaped(std::u16string_view name)
{
    return test::takeUTF8(gpsEscapeForAddress(name)).value_or("null");
}
}  // namespace

TEST(gpsEscapeForAddress, keepsWhatMayStandInAnAddress)
{
    EXPECT_EQ(escaped(u"ABCXYZabcxyz0189-_.!~*'();/?:@&=+$,"),
              "ABCXYZabcxyz0189-_.!~*'();/?:@&=+$,");
}

TEST(gpsEscapeForAddress, escapesEverythingElseInUpperCase)
{
    EXPECT_EQ(escaped(u"My Photo.jpg"), "My%20Photo.jpg");
    EXPECT_EQ(escaped(u"100%#[1]\"<>\\^`{|}"), "100%25%23%5B1%5D%22%3C%3E%5C%5E%60%7B%7C%7D");
    EXPECT_EQ(escaped(u"\u00e4\u20ac\U0001F30D\n\x7f"), "%C3%A4%E2%82%AC%F0%9F%8C%8D%0A%7F");
    EXPECT_EQ(escaped(std::u16string(1, char16_t{0xd800})), "%EF%BF%BD");
    EXPECT_EQ(escaped(u""), "");
}

TEST(gpsEscapeForAddress, isNullWhenMemoryRunsOut)
{
    const std::u16string text(40, u'%');
    EXPECT_GT(test::failEachRequest([&] { return gpsEscapeForAddress(text); }), 2u);
}
