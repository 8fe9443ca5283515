#include "lib/strings/tov_bytes.h"

#include "base/alloc.h"
#include "lib/strings/string_holder.h"
#include "tests/support/texts.h"

#include <gtest/gtest.h>

#include <cstring>
#include <optional>
#include <string>

using namespace pinorama;

using test::takeUTF8;
using test::text;
using test::utf8;

namespace {
test::Text fromUnits(std::u16string_view units)
{
    return test::Text(TovStringFromUTF16(units.data(), static_cast<std::int32_t>(units.size())));
}

using CopyFunction = void (*)(TovStringRef, char*, std::uint32_t*);

// The bytes that a copy function writes; "?" stands for bytes that it left alone.
std::string copied(CopyFunction copy, TovStringRef string, std::size_t room)
{
    std::string bytes(room, '?');
    std::uint32_t size = 999;
    copy(string, bytes.data(), &size);
    EXPECT_LE(size, room);
    EXPECT_EQ(bytes.find_first_not_of('?', size), std::string::npos) << "wrote past the count";
    return bytes.substr(0, size);
}

std::string copiedUTF8(TovStringRef string)
{
    const std::uint32_t size = TovStringGetUTF8Size(string);
    const std::string bytes = copied(TovStringCopyToUTF8, string, size + 4);
    EXPECT_EQ(bytes.size(), size);
    return bytes;
}

std::string copiedMacRoman(TovStringRef string)
{
    const std::uint32_t size = TovStringGetMacRomanSize(string);
    const std::string bytes = copied(TovStringCopyToMacRoman, string, size + 4);
    EXPECT_EQ(bytes.size(), size);
    return bytes;
}

std::optional<std::string> copiedPString(TovStringRef string)
{
    std::uint8_t buffer[256];
    std::memset(buffer, 0xaa, sizeof buffer);
    if (!TovStringCopyToPString(string, buffer)) {
        EXPECT_EQ(buffer[0], 0);
        return std::nullopt;
    }
    return std::string(reinterpret_cast<const char*>(buffer + 1), buffer[0]);
}
}  // namespace

TEST(TovStringFromCString, decodesMacRomanByCount)
{
    EXPECT_EQ(takeUTF8(TovStringFromCString("caf\x8e", 4)), "café");
    EXPECT_EQ(takeUTF8(TovStringFromCString("caf\x8e", 2)), "ca");
    EXPECT_EQ(takeUTF8(TovStringFromCString("abc", 0)), "");
}

TEST(TovStringFromCString, keepsZeroBytes)
{
    EXPECT_EQ(takeUTF8(TovStringFromCString("a\0b", 3)), std::string("a\0b", 3));
}

TEST(TovStringFromCString, takesNullAndNegativeCounts)
{
    EXPECT_EQ(TovStringFromCString(nullptr, 1), nullptr);
    EXPECT_EQ(TovStringFromCString("a", -1), nullptr);
    EXPECT_EQ(takeUTF8(TovStringFromCString(nullptr, 0)), "");
}

TEST(TovStringFromUTF8, decodesValidUTF8)
{
    const std::string bytes = "a\u00e9\u20ac\U0001F4F7";
    const StringHolder string(
        TovStringFromUTF8(bytes.data(), static_cast<std::int32_t>(bytes.size())));
    EXPECT_EQ(unitsOf(string.get()), u"a\u00e9\u20ac\U0001F4F7");
}

TEST(TovStringFromUTF8, keepsAByteOrderMark)
{
    const StringHolder string(TovStringFromUTF8("\xef\xbb\xbfx", 4));
    EXPECT_EQ(unitsOf(string.get()), u"\ufeffx");
}

TEST(TovStringFromUTF8, decodesAllOfInvalidUTF8AsMacRoman)
{
    const struct {
        const char* name;
        std::string bytes;
        const char* expected;
    } rows[] = {
        {"lone byte after valid UTF-8", "\u00e9\x8e", "√©é"},
        {"cut off", "\xe2\x82", "‚Ç"},
        {"overlong", "\xc0\x80", "¿Ä"},
        {"encoded surrogate", "\xed\xa0\x80", "Ì†Ä"},
        {"beyond the last code point", "\xf4\x90\x80\x80", "ÙêÄÄ"},
        {"no lead byte", "\xff", "ˇ"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(takeUTF8(TovStringFromUTF8(row.bytes.data(),
                                             static_cast<std::int32_t>(row.bytes.size()))),
                  row.expected);
    }
}

TEST(TovStringFromUTF8, takesNullAndNegativeCounts)
{
    EXPECT_EQ(TovStringFromUTF8(nullptr, 1), nullptr);
    EXPECT_EQ(TovStringFromUTF8("a", -1), nullptr);
    EXPECT_EQ(takeUTF8(TovStringFromUTF8(nullptr, 0)), "");
}

TEST(TovStringFromUTF16, copiesUnitsAsTheyAre)
{
    const std::u16string_view units(u"a\0\xd800z", 4);
    EXPECT_EQ(unitsOf(fromUnits(units).get()), units);
    EXPECT_EQ(TovStringFromUTF16(nullptr, 1), nullptr);
    EXPECT_EQ(TovStringFromUTF16(u"a", -1), nullptr);
    EXPECT_EQ(takeUTF8(TovStringFromUTF16(nullptr, 0)), "");
}

TEST(TovStringFromPString, decodesMacRomanByTheLengthByte)
{
    const std::uint8_t name[] = {3, 'a', 0x8e, 0, 'x'};
    EXPECT_EQ(takeUTF8(TovStringFromPString(name)), std::string("a\u00e9\0", 4));
    const std::uint8_t empty[] = {0};
    EXPECT_EQ(takeUTF8(TovStringFromPString(empty)), "");
    EXPECT_EQ(TovStringFromPString(nullptr), nullptr);
}

TEST(TovStringCopyToUTF8, writesTheBytesWithoutTerminator)
{
    EXPECT_EQ(copiedUTF8(text("abc").get()), "abc");
    EXPECT_EQ(copiedUTF8(text("a\u00e9\u20ac\U0001F4F7").get()), "a\u00e9\u20ac\U0001F4F7");
    EXPECT_EQ(copiedUTF8(text("").get()), "");
    EXPECT_EQ(copiedUTF8(nullptr), "");
}

TEST(TovStringCopyToUTF8, endsAtAnEmbeddedNull)
{
    EXPECT_EQ(copiedUTF8(fromUnits({u"a\0b", 3}).get()), "a");
    EXPECT_EQ(copiedUTF8(fromUnits({u"\0b", 2}).get()), "");
}

TEST(TovStringCopyToUTF8, writesNothingForALoneSurrogate)
{
    EXPECT_EQ(copiedUTF8(fromUnits({u"a\xd800", 2}).get()), "");
    EXPECT_EQ(copiedUTF8(fromUnits({u"\xdc00\x61", 2}).get()), "");
    EXPECT_EQ(copiedUTF8(fromUnits({u"a\0\xd800", 3}).get()), "") << "even after the end";
}

TEST(TovStringCopyToUTF8, toleratesNullPointers)
{
    const auto string = text("abc");
    char buffer[8];
    TovStringCopyToUTF8(string.get(), buffer, nullptr);
    EXPECT_EQ(std::string_view(buffer, 3), "abc");
    std::uint32_t size = 999;
    TovStringCopyToUTF8(string.get(), nullptr, &size);
    EXPECT_EQ(size, 0u);
}

TEST(TovStringCopyToMacRoman, writesMacRoman)
{
    EXPECT_EQ(copiedMacRoman(text("caf\u00e9 \u20ac").get()), "caf\x8e \xdb");
    EXPECT_EQ(copiedMacRoman(text("").get()), "");
    EXPECT_EQ(copiedMacRoman(nullptr), "");
}

TEST(TovStringCopyToMacRoman, writesUTF8WhenACharacterIsMissing)
{
    EXPECT_EQ(copiedMacRoman(text("\u00e9\u0416").get()), "\u00e9\u0416");
    EXPECT_EQ(copiedMacRoman(text("e\u0301").get()), "e\u0301");
}

TEST(TovStringCopyToMacRoman, endsAtAnEmbeddedNull)
{
    EXPECT_EQ(copiedMacRoman(fromUnits({u"\u00e9\0b", 3}).get()), "\x8e");
    EXPECT_EQ(copiedMacRoman(fromUnits({u"\u00e9\0\u0416", 3}).get()), "\u00e9");
}

TEST(TovStringCopyToMacRoman, writesNothingForALoneSurrogate)
{
    EXPECT_EQ(copiedMacRoman(fromUnits({u"a\xd800", 2}).get()), "");
}

TEST(TovStringCopyToPString, writesALengthByteAndMacRoman)
{
    EXPECT_EQ(copiedPString(text("caf\u00e9").get()), "caf\x8e");
    EXPECT_EQ(copiedPString(text("").get()), "");
    EXPECT_EQ(copiedPString(text(std::string(255, 'x')).get()), std::string(255, 'x'));
}

TEST(TovStringCopyToPString, isEmptyAndFalseWhenTheTextDoesNotFit)
{
    EXPECT_EQ(copiedPString(text(std::string(256, 'x')).get()), std::nullopt);
    EXPECT_EQ(copiedPString(text(std::string(300, 'x')).get()), std::nullopt);
    EXPECT_EQ(copiedPString(text("\u0416").get()), std::nullopt);
    EXPECT_EQ(copiedPString(fromUnits({u"\xd800", 1}).get()), std::nullopt);
    EXPECT_EQ(copiedPString(nullptr), std::nullopt);
    EXPECT_FALSE(TovStringCopyToPString(text("a").get(), nullptr));
}

TEST(TovStringFromUTF8, givesNullWhenMemoryRunsOut)
{
    const std::uint8_t name[] = {1, 'a'};
    const auto failing = [](auto create) {
        baseFailAllocation(1);
        EXPECT_EQ(create(), nullptr);
        EXPECT_TRUE(baseAllocationHasFailed());
        baseFailAllocation(0);
    };
    failing([] { return TovStringFromCString("a", 1); });
    failing([] { return TovStringFromUTF8("a", 1); });
    failing([] { return TovStringFromUTF8("\xff", 1); });
    failing([] { return TovStringFromUTF16(u"a", 1); });
    failing([&] { return TovStringFromPString(name); });
}
