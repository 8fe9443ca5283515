#include "lib/strings/tov_search.h"

#include "base/alloc.h"
#include "lib/strings/string_holder.h"
#include "lib/strings/tov_string.h"
#include "tests/support/texts.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

using namespace pinorama;

using test::takeUTF8;
using test::text;
using test::utf8;

namespace {
constexpr std::uint8_t kIgnoreCase = 0;
constexpr std::uint8_t kRespectCase = 1;
constexpr std::uint8_t kRespectCaseToo = 255;  // any value but 0
}  // namespace

TEST(TovStringCompare, putsNullFirst)
{
    const auto a = text("a");
    EXPECT_EQ(TovStringCompare(nullptr, nullptr, kRespectCase), 0);
    EXPECT_EQ(TovStringCompare(nullptr, a.get(), kRespectCase), -1);
    EXPECT_EQ(TovStringCompare(a.get(), nullptr, kRespectCase), 1);
    EXPECT_EQ(TovStringCompare(nullptr, text("").get(), kIgnoreCase), -1);
}

TEST(TovStringCompare, takesTheCaseFlag)
{
    const auto upper = text("ABC"), lower = text("abc");
    EXPECT_EQ(TovStringCompare(upper.get(), lower.get(), kIgnoreCase), 0);
    EXPECT_EQ(TovStringCompare(upper.get(), lower.get(), kRespectCase), -1);
    EXPECT_EQ(TovStringCompare(lower.get(), upper.get(), kRespectCaseToo), 1);
}

TEST(TovStringCompare, goesByCanonicalEquivalence)
{
    const auto precomposed = text("\u00e9"), decomposed = text("e\u0301"), plain = text("e");
    EXPECT_EQ(TovStringCompare(precomposed.get(), decomposed.get(), kRespectCase), 0);
    EXPECT_EQ(TovStringCompare(precomposed.get(), plain.get(), kRespectCase), 1);
}

TEST(TovStringEqualsCString, comparesWithMacRoman)
{
    EXPECT_TRUE(TovStringEqualsCString(text("caf\u00e9").get(), "caf\x8e", kRespectCase));
    EXPECT_TRUE(TovStringEqualsCString(text("CAFE\u0301").get(), "caf\x8e", kIgnoreCase));
    EXPECT_FALSE(TovStringEqualsCString(text("CAFE\u0301").get(), "caf\x8e", kRespectCase));
    EXPECT_TRUE(TovStringEqualsCString(text("").get(), "", kRespectCase));
    EXPECT_FALSE(TovStringEqualsCString(nullptr, "", kRespectCase));
    EXPECT_FALSE(TovStringEqualsCString(text("").get(), nullptr, kRespectCase));
    EXPECT_FALSE(TovStringEqualsCString(nullptr, nullptr, kRespectCase));
    const std::string longText(500, 'x');
    EXPECT_TRUE(TovStringEqualsCString(text(longText).get(), longText.c_str(), kRespectCase));
}

TEST(TovStringBeginsWith, isAFirstOccurrenceAtTheBeginning)
{
    const struct {
        const char *name, *string, *prefix;
        std::uint8_t flag;
        bool expected;
    } rows[] = {
        {"beginning", "abcabc", "abc", kRespectCase, true},
        {"whole", "abc", "abc", kRespectCase, true},
        {"later only", "xabc", "abc", kRespectCase, false},
        {"other case", "ABC", "ab", kRespectCase, false},
        {"other case ignored", "ABC", "ab", kIgnoreCase, true},
        {"longer than the text", "ab", "abc", kRespectCase, false},
        {"empty prefix", "abc", "", kRespectCase, false},
        {"empty both", "", "", kRespectCase, false},
        {"letter with a mark", "e\u0301", "e", kRespectCase, false},
        {"other form", "\u00e9x", "e\u0301", kRespectCase, true},
        {"null text", nullptr, "a", kRespectCase, false},
        {"null prefix", "a", nullptr, kRespectCase, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const auto string = row.string ? text(row.string) : test::Text();
        const auto prefix = row.prefix ? text(row.prefix) : test::Text();
        EXPECT_EQ(TovStringBeginsWith(string.get(), prefix.get(), row.flag), row.expected);
    }
}

TEST(TovStringBeginsWithCString, decodesMacRoman)
{
    EXPECT_TRUE(TovStringBeginsWithCString(text("\u00e9t\u00e9").get(), "\x8e", kRespectCase));
    EXPECT_TRUE(TovStringBeginsWithCString(text("\u00c9t\u00e9").get(), "\x8e", kIgnoreCase));
    EXPECT_FALSE(TovStringBeginsWithCString(text("abc").get(), "", kRespectCase));
    EXPECT_FALSE(TovStringBeginsWithCString(text("abc").get(), nullptr, kRespectCase));
    EXPECT_FALSE(TovStringBeginsWithCString(nullptr, "a", kRespectCase));
}

TEST(TovStringEndsWith, looksAtTheFirstOccurrenceOnly)
{
    const struct {
        const char *name, *string, *suffix;
        std::uint8_t flag;
        bool expected;
    } rows[] = {
        {"end", "xabc", "abc", kRespectCase, true},
        {"twice", "abcabc", "abc", kRespectCase, false},
        {"overlapping", "aaa", "aa", kRespectCase, false},
        {"earlier in another case, ignored", "ABCabc", "abc", kIgnoreCase, false},
        {"earlier in another case", "ABCabc", "abc", kRespectCase, true},
        {"whole", "abc", "abc", kRespectCase, true},
        {"not at the end", "abcx", "abc", kRespectCase, false},
        {"empty suffix", "abc", "", kRespectCase, false},
        {"decomposed text, precomposed suffix", "cafe\u0301", "\u00e9", kRespectCase, true},
        {"precomposed text, decomposed suffix", "caf\u00e9", "e\u0301", kRespectCase, true},
        {"a mark follows", "cafe\u0301", "cafe", kRespectCase, false},
        {"name with the extension twice", "a.jpg.jpg", ".jpg", kIgnoreCase, false},
        {"null text", nullptr, "a", kRespectCase, false},
        {"null suffix", "a", nullptr, kRespectCase, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const auto string = row.string ? text(row.string) : test::Text();
        const auto suffix = row.suffix ? text(row.suffix) : test::Text();
        EXPECT_EQ(TovStringEndsWith(string.get(), suffix.get(), row.flag), row.expected);
    }
}

TEST(TovStringEndsWithCString, decodesMacRoman)
{
    EXPECT_TRUE(TovStringEndsWithCString(text("cafe\u0301").get(), "\x8e", kRespectCase));
    EXPECT_FALSE(TovStringEndsWithCString(text("1 MB MB").get(), "MB", kRespectCase));
    EXPECT_FALSE(TovStringEndsWithCString(text("abc").get(), "", kRespectCase));
    EXPECT_FALSE(TovStringEndsWithCString(text("abc").get(), nullptr, kRespectCase));
    EXPECT_FALSE(TovStringEndsWithCString(nullptr, "a", kRespectCase));
}

TEST(TovStringContains, isTrueAnywhere)
{
    EXPECT_TRUE(TovStringContains(text("photo").get(), text("hot").get(), kRespectCase));
    EXPECT_TRUE(TovStringContains(text("PHOTO").get(), text("hot").get(), kIgnoreCase));
    EXPECT_FALSE(TovStringContains(text("PHOTO").get(), text("hot").get(), kRespectCase));
    EXPECT_FALSE(TovStringContains(text("photo").get(), text("").get(), kRespectCase));
    EXPECT_FALSE(TovStringContains(nullptr, text("a").get(), kRespectCase));
    EXPECT_FALSE(TovStringContains(text("a").get(), nullptr, kRespectCase));
}

TEST(TovStringPosition, beginsAtTheStart)
{
    constexpr std::int32_t kHighest = std::numeric_limits<std::int32_t>::max();
    constexpr std::int32_t kLowest = std::numeric_limits<std::int32_t>::min();
    const struct {
        const char* name;
        std::int32_t start, expected;
    } rows[] = {
        {"beginning", 0, 0},  {"next", 1, 3},          {"on it", 3, 3},
        {"past it", 4, -1},   {"length", 6, -1},       {"highest", kHighest, -1},
        {"negative", -1, -1}, {"lowest", kLowest, -1},
    };
    const auto string = text("abcabc"), sub = text("abc");
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(TovStringPosition(string.get(), sub.get(), row.start, kRespectCase),
                  row.expected);
    }
}

TEST(TovStringPosition, ofNullOrNothingIsMinusOne)
{
    const auto a = text("a"), empty = text("");
    EXPECT_EQ(TovStringPosition(nullptr, a.get(), 0, kRespectCase), -1);
    EXPECT_EQ(TovStringPosition(a.get(), nullptr, 0, kRespectCase), -1);
    EXPECT_EQ(TovStringPosition(a.get(), empty.get(), 0, kRespectCase), -1);
    EXPECT_EQ(TovStringPosition(empty.get(), empty.get(), 0, kRespectCase), -1);
}

TEST(TovStringPosition, countsUnitsOfTheSearchedText)
{
    const auto string = text("e\u0301\U0001F4F7x"), sub = text("x");
    EXPECT_EQ(TovStringPosition(string.get(), sub.get(), 0, kRespectCase), 4);
}

TEST(TovStringCountCharAppearances, isExact)
{
    const auto string = text("aAa\u00e9");
    EXPECT_EQ(TovStringCountCharAppearances(string.get(), u'a'), 2);
    EXPECT_EQ(TovStringCountCharAppearances(string.get(), u'\u00e9'), 1);
    EXPECT_EQ(TovStringCountCharAppearances(string.get(), u'e'), 0);
    EXPECT_EQ(TovStringCountCharAppearances(text("").get(), u'a'), 0);
    EXPECT_EQ(TovStringCountCharAppearances(nullptr, u'a'), 0);
}

TEST(TovStringReplaceCharacter, replacesASCIIBytes)
{
    const struct {
        const char *name, *string;
        char16_t from, to;
        std::string expected;
    } rows[] = {
        {"all of them", "a/b/c", u'/', u':', "a:b:c"},
        {"none there", "abc", u'/', u':', "abc"},
        {"case counts", "aA", u'a', u'x', "xA"},
        {"beside other characters", "\u00e9/\U0001F4F7", u'/', u'-', "\u00e9-\U0001F4F7"},
        {"beyond ASCII is never replaced", "\u00e9", u'\u00e9', u'e', "\u00e9"},
        {"nor by a byte of its UTF-8 form", "\u00e9", u'\u00a9', u'x', "\u00e9"},
        {"nor by the low byte", "a", u'\u0161', u'x', "a"},
        {"only the low byte is planted", "a/b", u'/', u'\u013a', "a:b"},
        {"a planted byte makes it MacRoman", "a/b", u'/', u'\u00e9', "a\u00c8b"},
        {"all of it", "\u00e9/b", u'/', u'\u00e9', "\u221a\u00a9\u00c8b"},
        {"a planted null stays", "a/b", u'/', u'\0', std::string("a\0b", 3)},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(takeUTF8(TovStringReplaceCharacter(text(row.string).get(), row.from, row.to)),
                  row.expected);
    }
}

TEST(TovStringReplaceCharacter, endsAtAnEmbeddedNull)
{
    const auto string = text({"a/\0b", 4});
    EXPECT_EQ(takeUTF8(TovStringReplaceCharacter(string.get(), u'/', u':')), "a:");
}

TEST(TovStringReplaceCharacter, isNullWithoutAByteForm)
{
    EXPECT_EQ(TovStringReplaceCharacter(nullptr, u'a', u'b'), nullptr);
    EXPECT_EQ(TovStringReplaceCharacter(text("").get(), u'a', u'b'), nullptr);
    const StringHolder lone(createString({u"a\xd800", 2}));
    EXPECT_EQ(TovStringReplaceCharacter(lone.get(), u'a', u'b'), nullptr);
}

TEST(TovStringGetExtension, isWhatFollowsTheLastDot)
{
    const struct {
        const char *name, *string;
        std::optional<std::string> extension;
        const char* rest;
    } rows[] = {
        {"usual", "photo.jpg", "jpg", "photo"},
        {"two dots", "photo.tar.gz", "gz", "photo.tar"},
        {"no dot", "photo", std::nullopt, "photo"},
        {"dot first", ".jpg", std::nullopt, ".jpg"},
        {"dot first and later", ".a.b", "b", ".a"},
        {"dot last", "a.", "", "a"},
        {"two dots alone", "..", "", "."},
        {"empty", "", std::nullopt, ""},
        {"one character", "a", std::nullopt, "a"},
        {"one dot", ".", std::nullopt, "."},
        {"slash after the dot", "a.b/c", "b/c", "a"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(takeUTF8(TovStringGetExtension(text(row.string).get())), row.extension);
        EXPECT_EQ(takeUTF8(TovStringStripExtension(text(row.string).get())), row.rest);
    }
}

TEST(TovStringGetExtension, ofNullIsNull)
{
    EXPECT_EQ(TovStringGetExtension(nullptr), nullptr);
    EXPECT_EQ(TovStringStripExtension(nullptr), nullptr);
}

TEST(TovStringStripExtension, isMutableOnlyWithoutAnExtension)
{
    StringHolder copy(TovStringStripExtension(text("photo").get()));
    TovStringAppendCString(copy.slot(), "!");
    EXPECT_EQ(utf8(copy.get()), "photo!");
    StringHolder cut(TovStringStripExtension(text("photo.jpg").get()));
    TovStringAppendCString(cut.slot(), "!");
    EXPECT_EQ(utf8(cut.get()), "photo");
}

TEST(TovStringPosition, isNeutralWhenMemoryRunsOut)
{
    const auto string = text("photo.jpg");
    const std::string longText(500, 'x');
    const auto longString = text(longText);
    for (std::uint64_t nth = 1; nth <= 2; nth++) {
        baseFailAllocation(nth);
        EXPECT_EQ(TovStringReplaceCharacter(string.get(), u'.', u'-'), nullptr);
        EXPECT_TRUE(baseAllocationHasFailed());
    }
    baseFailAllocation(1);
    EXPECT_EQ(TovStringGetExtension(string.get()), nullptr);
    baseFailAllocation(1);
    EXPECT_EQ(TovStringStripExtension(string.get()), nullptr);
    baseFailAllocation(1);
    EXPECT_FALSE(TovStringEqualsCString(longString.get(), longText.c_str(), kRespectCase));
    baseFailAllocation(1);
    EXPECT_FALSE(TovStringBeginsWithCString(longString.get(), longText.c_str(), kRespectCase));
    baseFailAllocation(1);
    EXPECT_FALSE(TovStringEndsWithCString(longString.get(), longText.c_str(), kRespectCase));
    EXPECT_TRUE(baseAllocationHasFailed());
    baseFailAllocation(0);
}
