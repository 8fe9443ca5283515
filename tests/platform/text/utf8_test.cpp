#include "platform/text/utf8.h"

#include "lib/base/alloc.h"
#include "tests/support/texts.h"

#include <gtest/gtest.h>
#include <unicode/ustring.h>
#include <unicode/utf16.h>

#include <random>
#include <string>
#include <vector>

namespace {
// What ICU makes of the bytes; nothing when they are not valid.
std::optional<std::u16string> decodedByICU(std::string_view bytes)
{
    std::vector<char16_t> buffer(bytes.size() + 1);
    std::int32_t length = 0;
    UErrorCode status = U_ZERO_ERROR;
    u_strFromUTF8(buffer.data(), static_cast<std::int32_t>(buffer.size()), &length, bytes.data(),
                  static_cast<std::int32_t>(bytes.size()), &status);
    if (U_FAILURE(status)) return std::nullopt;
    return std::u16string(buffer.data(), static_cast<std::size_t>(length));
}

std::optional<std::u16string> decoded(std::string_view bytes)
{
    const std::int32_t units = platform::countUnitsOfUTF8(bytes);
    if (units < 0) return std::nullopt;
    std::u16string text(static_cast<std::size_t>(units), u'?');
    platform::decodeUTF8(bytes, text.data());
    return text;
}

std::optional<std::string> encoded(std::u16string_view units)
{
    const std::int32_t count = platform::countBytesOfUTF8(units);
    if (count < 0) return std::nullopt;
    std::string bytes(static_cast<std::size_t>(count), '?');
    platform::encodeUTF8(units, bytes.data());
    return bytes;
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
        {"behind a long run of ASCII", "0123456789abcdefghijklmnopqrstuvwxyz\x80"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(platform::countUnitsOfUTF8(row.bytes), -1);
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
        ASSERT_EQ(decodedByICU(*bytes), text) << first;
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
        const auto expected = decodedByICU(bytes);
        valid += expected.has_value();
        ASSERT_EQ(decoded(bytes), expected) << testing::PrintToString(bytes);
        if (!expected) continue;
        ASSERT_EQ(encoded(*expected), bytes);
    }
    EXPECT_GT(valid, 20000);
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
    EXPECT_EQ(test::takeUTF8(platform::createStringFromUTF8("caf\u00e9")), "caf\u00e9");
    EXPECT_EQ(test::takeUTF8(platform::createStringFromUTF8("")), "");
    EXPECT_EQ(platform::createStringFromUTF8("\xff"), nullptr);
    baseFailAllocation(1);
    EXPECT_EQ(platform::createStringFromUTF8("x"), nullptr);
    EXPECT_TRUE(baseAllocationHasFailed());
    baseFailAllocation(0);
}

TEST(displayUTF8, showsLoneSurrogatesAsReplacementCharacters)
{
    EXPECT_EQ(platform::displayUTF8(u"a\u00e9\U0001F4F7"), "a\u00e9\U0001F4F7");
    const std::u16string lone = {u'a', 0xd800, u'b', 0xdc80};
    EXPECT_EQ(platform::displayUTF8(lone), "a\ufffdb\ufffd");
}
