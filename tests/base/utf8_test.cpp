#include "base/utf8.h"

#include "base/alloc.h"
#include "lib/text/byte_texts.h"
#include "tests/support/icu_texts.h"
#include "tests/support/random_texts.h"
#include "tests/support/texts.h"

#include <gtest/gtest.h>
#include <unicode/utf16.h>

#include <iterator>
#include <random>
#include <span>
#include <string>

using namespace pinorama;

namespace {
std::optional<std::u16string> decoded(std::string_view bytes)
{
    const std::int32_t units = countUnitsOfUTF8(bytes);
    if (units < 0) return std::nullopt;
    const auto count = static_cast<std::size_t>(units);
    return test::writtenInto<char16_t>(count, [&](char16_t* dest) {
        EXPECT_EQ(decodeUTF8(bytes, {dest, count}), count);
    });
}

std::optional<std::string> encoded(std::u16string_view units)
{
    const std::int32_t count = countBytesOfUTF8(units);
    if (count < 0) return std::nullopt;
    const auto size = static_cast<std::size_t>(count);
    return test::writtenInto<char>(size, [&](char* dest) {
        EXPECT_EQ(encodeUTF8(units, {dest, size}), size);
    });
}
}  // namespace

TEST(decodeUTF8, refusesWhatIsNotUTF8)
{
    const struct {
        const char* name;
        std::string_view bytes;
    } rows[] = {
        {"lone trail byte", "\x80"},
        {"lead byte alone", "\xc3"},
        {"lead byte before ASCII",
         "\xc3"
         "a"},
        {"three bytes cut off", "\xe2\x82"},
        {"four bytes cut off", "\xf0\x9f\x93"},
        {"overlong two", "\xc0\x80"},
        {"overlong two, highest", "\xc1\xbf"},
        {"overlong three", "\xe0\x9f\xbf"},
        {"overlong four", "\xf0\x8f\xbf\xbf"},
        {"high surrogate", "\xed\xa0\x80"},
        {"low surrogate", "\xed\xbf\xbf"},
        {"pair of surrogates", "\xed\xa0\xbd\xed\xb3\xb7"},
        {"beyond the last", "\xf4\x90\x80\x80"},
        {"five bytes", "\xf8\x88\x80\x80\x80"},
        {"never a byte", "\xff"},
        {"after a long run of ASCII", "0123456789abcdefghijklmnopqrstuvwxyz\x80"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(countUnitsOfUTF8(row.bytes), -1);
    }
}

TEST(decodeUTF8, bringsEveryCodePointBack)
{
    constexpr UChar32 kStep = 256;
    for (UChar32 first = 0; first <= 0x10ffff; first += kStep) {
        if (U_IS_SURROGATE(first)) continue;
        std::u16string text;
        for (UChar32 codePoint = first; codePoint < first + kStep; codePoint++) {
            if (codePoint % 5 == 0) text += u'x';  // now and then beside ASCII
            if (codePoint > 0xffff) text += static_cast<char16_t>(0xd7c0 + (codePoint >> 10));
            text += static_cast<char16_t>(codePoint > 0xffff ? 0xdc00 + (codePoint & 0x3ff)
                                                             : codePoint);
        }
        const auto bytes = encoded(text);
        ASSERT_TRUE(bytes) << first;
        ASSERT_EQ(test::unitsByICU(*bytes), text) << first;
        ASSERT_EQ(decoded(*bytes), text) << first;
    }
}

TEST(decodeUTF8, agreesWithICUOnRandomBytes)
{
    std::mt19937 random(3);
    const std::string_view pieces[] = {
        "a",    "abcdefghijklmnop", "\u00e9", "\u20ac",   "\U0001F4F7",
        "\xc3", "\xe2\x82",         "\x80",   "\xf0\x9f", "\xed\xa0\x80"};
    int valid = 0;
    for (int i = 0; i < 50000; i++) {
        std::string bytes;
        const auto choices = random() % 2 == 0 ? 5u : static_cast<unsigned>(std::size(pieces));
        for (auto n = random() % 8; n > 0; n--) bytes += pieces[random() % choices];
        const auto expected = test::unitsByICU(bytes);
        valid += expected.has_value();
        ASSERT_EQ(decoded(bytes), expected) << testing::PrintToString(bytes);
        if (!expected) continue;
        ASSERT_EQ(encoded(*expected), bytes);
    }
    EXPECT_GT(valid, 20000);
}

TEST(decodeUTF8, fillsExactlyTheRoomThatWasCounted)
{
    int valid = 0;
    test::forRandomBytes([&](const std::string& bytes) {
        const auto expected = test::unitsByICU(bytes);
        valid += expected.has_value();
        ASSERT_EQ(decoded(bytes), expected);
    });
    EXPECT_GT(valid, 5000);
}

TEST(decodeUTF8, keepsToARoomThatIsTooSmall)
{
    const std::string_view bytes = "ab\u00e9\u20ac\U0001F4F7z";
    const std::size_t written[] = {0, 1, 2, 3, 4, 4, 6, 7, 7};
    for (std::size_t room = 0; room < std::size(written); room++) {
        std::u16string units(std::size(written), u'?');
        ASSERT_EQ(decodeUTF8(bytes, std::span(units).first(room)), written[room]);
        ASSERT_EQ(units.substr(0, written[room]),
                  std::u16string_view(u"ab\u00e9\u20ac\U0001F4F7z").substr(0, written[room]));
        ASSERT_EQ(units.find_first_not_of(u'?', written[room]), units.npos);
    }
    std::u16string units(4, u'?');
    EXPECT_EQ(decodeUTF8("ab\xff"
                         "c",
                         units),
              2u)
        << "ends at what is no UTF-8";
    EXPECT_EQ(units, u"ab??");
}

TEST(encodeUTF8, fillsExactlyTheRoomThatWasCounted)
{
    int valid = 0;
    test::forRandomTexts([&](const std::u16string& text) {
        const auto expected = test::utf8ByICU(text);
        valid += expected.has_value();
        ASSERT_EQ(encoded(text), expected);
    });
    EXPECT_GT(valid, 100000);
}

TEST(encodeUTF8, keepsToARoomThatIsTooSmall)
{
    const std::u16string_view units = u"ab\u00e9\u20ac\U0001F4F7z";
    const std::size_t written[] = {0, 1, 2, 2, 4, 4, 4, 7, 7, 7, 7, 11, 12, 12};
    for (std::size_t room = 0; room < std::size(written); room++) {
        std::string bytes(std::size(written), '?');
        ASSERT_EQ(encodeUTF8(units, std::span(bytes).first(room)), written[room]);
        ASSERT_EQ(bytes.substr(0, written[room]),
                  std::string_view("ab\u00e9\u20ac\U0001F4F7z").substr(0, written[room]));
        ASSERT_EQ(bytes.find_first_not_of('?', written[room]), bytes.npos);
    }
    std::string bytes(4, '?');
    const char16_t lone[] = {u'a', u'b', 0xd800, u'c'};
    EXPECT_EQ(encodeUTF8({lone, 4}, bytes), 2u) << "ends at a lone surrogate";
    EXPECT_EQ(bytes, "ab??");
}

TEST(countBytesOfUTF8, addsUpWhatEachCharacterTakes)
{
    // 8 of 40 units with two bytes each.
    std::u16string text;
    for (int i = 0; i < 8; i++) text += u"abc\u00e9d";
    EXPECT_EQ(countBytesOfUTF8(text), 48);
}

TEST(encodeUTF8, refusesLoneSurrogatesAnywhere)
{
    for (std::size_t length = 1; length <= 40; length++) {
        for (std::size_t at = 0; at < length; at++) {
            std::u16string text(length, u'x');
            text[at] = 0xd83d;
            ASSERT_EQ(encoded(text), std::nullopt);
            text[at] = 0xdcf7;
            ASSERT_EQ(encoded(text), std::nullopt);
            if (at + 1 == length) continue;
            text[at] = 0xd83d;
            text[at + 1] = 0xdcf7;
            ASSERT_EQ(encoded(text)->size(), length + 2);
        }
    }
}

TEST(createStringFromUTF8, isNullForInvalidBytesAndWithoutMemory)
{
    EXPECT_EQ(test::takeUTF8(createStringFromUTF8("caf\u00e9")), "caf\u00e9");
    EXPECT_EQ(test::takeUTF8(createStringFromUTF8("")), "");
    EXPECT_EQ(createStringFromUTF8("\xff"), nullptr);
    baseFailAllocation(1);
    EXPECT_EQ(createStringFromUTF8("x"), nullptr);
    EXPECT_TRUE(baseAllocationHasFailed());
    baseFailAllocation(0);
}

TEST(displayUTF8, showsLoneSurrogatesAsReplacementCharacters)
{
    EXPECT_EQ(displayUTF8(u"a\u00e9\U0001F4F7"), "a\u00e9\U0001F4F7");
    const std::u16string lone = {u'a', 0xd800, u'b', 0xdc80};
    EXPECT_EQ(displayUTF8(lone), "a\ufffdb\ufffd");
}
