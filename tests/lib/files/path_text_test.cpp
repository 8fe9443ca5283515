#include "lib/files/path_text.h"

#include "tests/support/failing_memory.h"
#include "tests/support/texts.h"

#include <gtest/gtest.h>

#include <string>

using namespace pinorama;

namespace {
std::u16string unitsOfPath(std::string_view bytes)
{
    const test::Text text(createPathText(bytes));
    return std::u16string(unitsOf(text.get()));
}
}  // namespace

TEST(createPathText, keepsBytesThatAreNotUTF8AsLoneUnits)
{
    const struct {
        const char* name;
        std::string_view bytes;
        std::u16string_view units;
    } rows[] = {
        {"ascii", "/a/b.jpg", u"/a/b.jpg"},
        {"umlaut", "/\xc3\xa4", u"/\u00e4"},
        {"beyond the basic plane", "\xf0\x9f\x93\xb7", u"\U0001f4f7"},
        {"Latin-1 umlaut", "/\xe4.jpg", u"/\xdce4.jpg"},
        {"cut character at the end", "a\xc3", u"a\xdcc3"},
        {"overlong slash", "\xc0\xaf", u"\xdcc0\xdcaf"},
        {"encoded surrogate", "\xed\xa0\x80", u"\xdced\xdca0\xdc80"},
        {"bad byte between good characters", "\xc3\xa4\xff\xc3\xb6", u"\u00e4\xdcff\u00f6"},
        // The second half of this character, U+DCF7, would stand for a byte if it stood alone.
        {"bad byte after a character with such a half", "\xf0\x9f\x93\xb7\xff",
         u"\U0001f4f7\xdcff"},
        {"empty", "", u""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(unitsOfPath(row.bytes), row.units);
        const test::Text text(createPathText(row.bytes));
        EXPECT_EQ(pathBytes(text.get()), row.bytes);
    }
}

TEST(pathBytes, keepsEverySingleByte)
{
    for (int value = 1; value < 256; value++) {
        const std::string bytes = {'/', static_cast<char>(value), 'x'};
        const test::Text text(createPathText(bytes));
        EXPECT_EQ(pathBytes(text.get()), bytes) << value;
    }
}

TEST(pathBytes, replacesSurrogatesThatStandForNoByte)
{
    const test::Text high(
        createString(u"a\xd800"
                     u"b"));
    EXPECT_EQ(pathBytes(high.get()),
              "a\xef\xbf\xbd"
              "b");
    const test::Text low(createString(u"\xdc7f"));
    EXPECT_EQ(pathBytes(low.get()), "\xef\xbf\xbd");
}

TEST(pathBytes, areEmptyForNull)
{
    EXPECT_EQ(pathBytes(nullptr), "");
}

TEST(createPathText, isNullWhenMemoryRunsOut)
{
    const std::string bytes = "/home/user/" + std::string(40, '\xff');
    EXPECT_GT(test::failEachRequest([&] { return createPathText(bytes); }), 1u);
}
