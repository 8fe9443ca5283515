#include "lib/strings/tov_url.h"

#include "base/alloc.h"
#include "lib/strings/string_holder.h"
#include "lib/strings/tov_string.h"
#include "tests/support/texts.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

using namespace pinorama;

using test::takeUTF8;
using test::text;
using test::utf8;

TEST(TovStringConvertToURL, leavesUnreservedCharactersAlone)
{
    const std::string unreserved =
        "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-_.!~*'()";
    for (int code = 0; code < 0x80; code++) {
        SCOPED_TRACE(code);
        const auto character = static_cast<char>(code);
        const bool stays = code != 0 && unreserved.find(character) != std::string::npos;
        char escape[8];
        std::snprintf(escape, sizeof escape, "%%%02X", static_cast<unsigned>(code));
        EXPECT_EQ(takeUTF8(TovStringConvertToURL(text({&character, 1}).get())),
                  stays ? std::string(1, character) : escape);
    }
}

TEST(TovStringConvertToURL, escapesTheBytesOfUTF8)
{
    const struct {
        const char *name, *text, *expected;
    } rows[] = {
        {"empty", "", ""},
        {"blank and ampersand", "a b&c", "a%20b%26c"},
        {"reserved", "$&+;:=?@/,", "%24%26%2B%3B%3A%3D%3F%40%2F%2C"},
        {"percent sign", "100%", "100%25"},
        {"not again", "%20", "%2520"},
        {"two bytes", "\u00e9", "%C3%A9"},
        {"three bytes", "\u20ac", "%E2%82%AC"},
        {"four bytes", "\U0001F4F7", "%F0%9F%93%B7"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(takeUTF8(TovStringConvertToURL(text(row.text).get())), row.expected);
    }
}

TEST(TovStringConvertToURL, replacesLoneSurrogates)
{
    for (const std::u16string& lone :
         {std::u16string{u'a', 0xd800}, std::u16string{u'a', 0xdcff}}) {
        const StringHolder string(createString(lone));
        EXPECT_EQ(takeUTF8(TovStringConvertToURL(string.get())), "a%EF%BF%BD");
    }
}

TEST(TovStringConvertToURL, ofNullIsTheSharedEmptyText)
{
    TovStringRef empty = TovStringConvertToURL(nullptr);
    ASSERT_NE(empty, nullptr);
    EXPECT_EQ(TovStringGetLength(empty), 0);
    EXPECT_EQ(TovStringConvertToURL(nullptr), empty);
    TovStringRef variable = empty;
    for (int i = 0; i < 3; i++) {
        variable = empty;
        TovStringRelease(&variable);
    }
    EXPECT_EQ(utf8(empty), "");
    variable = empty;
    TovStringAppendCString(&variable, "x");
    EXPECT_EQ(utf8(empty), "");
}

TEST(TovStringConvertFromURL, decodesEveryEscape)
{
    const struct {
        const char* name;
        std::string text;
        std::optional<std::string> expected;
    } rows[] = {
        {"empty", "", ""},
        {"nothing escaped", "abc", "abc"},
        {"blank and ampersand", "a%20b%26c", "a b&c"},
        {"small digits", "%c3%a9", "\u00e9"},
        {"four bytes", "x%F0%9F%93%B7y", "x\U0001F4F7y"},
        {"plus stays", "a+b", "a+b"},
        {"once only", "%2520", "%20"},
        {"beside other characters", "\u00e9%20\U0001F4F7", "\u00e9 \U0001F4F7"},
        {"null", "a%00b", std::string("a\0b", 3)},
        {"lone percent sign", "100%", std::nullopt},
        {"one digit", "%4", std::nullopt},
        {"no digit", "%zz", std::nullopt},
        {"one bad digit", "%4g", std::nullopt},
        {"wide digit", "%\uff14\uff11", std::nullopt},
        {"invalid UTF-8", "%ff", std::nullopt},
        {"UTF-8 cut off", "%c3x", std::nullopt},
        {"UTF-8 cut off by a character", "%c3\u00a9", std::nullopt},
        {"overlong", "%c0%80", std::nullopt},
        {"escaped surrogate", "%ed%a0%80", std::nullopt},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(takeUTF8(TovStringConvertFromURL(text(row.text).get())), row.expected);
    }
}

TEST(TovStringConvertFromURL, ofNullIsNull)
{
    EXPECT_EQ(TovStringConvertFromURL(nullptr), nullptr);
}

TEST(TovStringConvertFromURL, undoesTovStringConvertToURL)
{
    for (char32_t codePoint = 1; codePoint <= 0x10ffff; codePoint += codePoint < 0x3000 ? 1 : 251) {
        if (codePoint >= 0xd800 && codePoint <= 0xdfff) continue;
        std::u16string units;
        if (codePoint > 0xffff) units += static_cast<char16_t>(0xd7c0 + (codePoint >> 10));
        units +=
            static_cast<char16_t>(codePoint > 0xffff ? 0xdc00 + (codePoint & 0x3ff) : codePoint);
        const StringHolder original(createString(u"a" + units + u"%"));
        const StringHolder escaped(TovStringConvertToURL(original.get()));
        const StringHolder back(TovStringConvertFromURL(escaped.get()));
        ASSERT_TRUE(equalUnits(back.get(), original.get()))
            << static_cast<std::uint32_t>(codePoint);
    }
}

TEST(TovStringConvertToURL, givesNullWhenMemoryRunsOut)
{
    const auto string = text("a%20b");
    baseFailAllocation(1);
    EXPECT_EQ(TovStringConvertToURL(string.get()), nullptr);
    for (std::uint64_t nth = 1; nth <= 2; nth++) {
        baseFailAllocation(nth);
        EXPECT_EQ(TovStringConvertFromURL(string.get()), nullptr);
        EXPECT_TRUE(baseAllocationHasFailed());
    }
    baseFailAllocation(0);
}
