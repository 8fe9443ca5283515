// Escapes, elements and formats with all kinds of texts: what is counted is what is written. What
// they should give is put together here character by character.

#include "lib/strings/string_holder.h"
#include "lib/strings/tov_format.h"
#include "lib/strings/tov_string.h"
#include "lib/strings/tov_url.h"
#include "lib/strings/tov_xml.h"
#include "tests/support/icu_texts.h"
#include "tests/support/random_texts.h"
#include "tests/support/texts.h"

#include <gtest/gtest.h>

#include <cctype>
#include <cstdio>
#include <random>

using namespace pinorama;

namespace {
std::u16string widened(std::string_view ascii)
{
    return {ascii.begin(), ascii.end()};
}

std::u16string expectedEscapes(const std::u16string& text)
{
    std::string escaped;
    for (const char byte : test::displayUTF8ByICU(text)) {
        const auto value = static_cast<unsigned char>(byte);
        const bool stays = value < 0x80 && value != 0 &&
                           (std::isalnum(value) != 0 ||
                            std::string_view("-_.!~*'()").find(byte) != std::string_view::npos);
        char digits[8];
        std::snprintf(digits, sizeof digits, "%%%02X", unsigned{value});
        escaped += stays ? std::string(1, byte) : digits;
    }
    return widened(escaped);
}

// Nothing when an escape is none or the bytes of a run of them are no UTF-8.
std::optional<std::u16string> expectedWithoutEscapes(const std::u16string& text)
{
    std::u16string units;
    std::string run;
    for (std::size_t i = 0; i <= text.size(); i++) {
        if (i < text.size() && text[i] == u'%') {
            if (i + 2 >= text.size()) return std::nullopt;
            const std::u16string digits = text.substr(i + 1, 2);
            if (digits.find_first_not_of(u"0123456789ABCDEFabcdef") != digits.npos) {
                return std::nullopt;
            }
            const std::string narrow = {static_cast<char>(digits[0]), static_cast<char>(digits[1])};
            run += static_cast<char>(std::stoi(narrow, nullptr, 16));
            i += 2;
            continue;
        }
        const auto decoded = test::unitsByICU(run);
        if (!decoded) return std::nullopt;
        units += *decoded;
        run.clear();
        if (i < text.size()) units += text[i];
    }
    return units;
}

struct Layout {
    std::size_t width, precision;
    bool isLeftAligned;

    std::u16string directive(char conversion) const
    {
        return widened("<%" + std::string(isLeftAligned ? "-" : "") + std::to_string(width) + "." +
                       std::to_string(precision) + conversion + ">");
    }

    std::u16string applied(std::u16string_view text) const
    {
        const std::u16string cut(text.substr(0, precision));
        const std::u16string blanks(width > cut.size() ? width - cut.size() : 0, u' ');
        return u'<' + (isLeftAligned ? cut + blanks : blanks + cut) + u'>';
    }
};

Layout randomLayout(std::mt19937& random)
{
    return {1 + random() % 60, random() % 250, random() % 2 == 0};
}
}  // namespace

TEST(TovStringConvertToURL, writesAsManyUnitsAsAreCounted)
{
    test::forRandomTexts(
        [](const std::u16string& text) {
            const StringHolder string(createString(text));
            const StringHolder escaped(TovStringConvertToURL(string.get()));
            ASSERT_EQ(unitsOf(escaped.get()), expectedEscapes(text));
        },
        7);
}

TEST(TovStringConvertFromURL, staysWithinTheLengthOfTheEscapedText)
{
    int decoded = 0;
    test::forRandomTexts(
        [&](const std::u16string& text) {
            const StringHolder string(createString(text));
            const StringHolder plain(TovStringConvertFromURL(string.get()));
            const auto expected = expectedWithoutEscapes(text);
            ASSERT_EQ(plain.get() != nullptr, expected.has_value());
            if (!expected) return;
            decoded += *expected != text;
            ASSERT_EQ(unitsOf(plain.get()), *expected);
        },
        5);
    EXPECT_GT(decoded, 100);
}

TEST(TovStringAppendStringAsXMLTag, addsTheTagsAndTheText)
{
    const test::Text tag = test::text("t\u00e4g");
    test::forRandomTexts(
        [&](const std::u16string& text) {
            StringHolder target(createString(text, true));
            const StringHolder value(createString(text));
            TovStringAppendStringAsXMLTag(target.slot(), value.get(), tag.get());
            ASSERT_EQ(unitsOf(target.get()), text + u"<t\u00e4g>" + text + u"</t\u00e4g>\n");
        },
        3);
}

TEST(tovFormat, laysOutTextsOfAllKinds)
{
    std::mt19937 random(test::kRandomTextSeed);
    test::forRandomTexts([&](const std::u16string& text) {
        const Layout layout = randomLayout(random);
        const StringHolder string(createString(text));
        const StringHolder printed(tovFormat(layout.directive('@'), {string.get()}));
        ASSERT_EQ(unitsOf(printed.get()), layout.applied(text));
    });
}

TEST(tovFormat, laysOutCStringsOfAllKinds)
{
    std::mt19937 random(test::kRandomTextSeed);
    test::forRandomBytes([&](const std::string& bytes) {
        const Layout layout = randomLayout(random);
        const StringHolder printed(tovFormat(layout.directive('s'), {bytes.c_str()}));
        ASSERT_EQ(unitsOf(printed.get()), layout.applied(test::macRomanUnitsByICU(bytes.c_str())));
    });
}

TEST(tovFormat, copiesATemplateWithoutDirectives)
{
    test::forRandomTexts(
        [](const std::u16string& text) {
            std::u16string format, expected;
            for (const char16_t unit : text) {
                format += unit == u'%' ? u"%%" : std::u16string(1, unit);
                expected += unit;
            }
            const StringHolder printed(tovFormat(format, std::span<const FormatArgument>()));
            ASSERT_EQ(unitsOf(printed.get()), expected);
        },
        7);
}

TEST(TovStringAppendTovString, addsTheUnitsAsTheyAre)
{
    test::forRandomTexts(
        [](const std::u16string& text) {
            StringHolder target(createString(u"x", true));
            const StringHolder added(createString(text));
            TovStringAppendTovString(target.slot(), added.get());
            TovStringAppendTovString(target.slot(), target.get());
            ASSERT_EQ(unitsOf(target.get()), u"x" + text + u"x" + text);
        },
        3);
}
