// Escaped texts of all kinds and lengths, put together here character by character.

#include "globe/address_escape.h"
#include "globe/xml_escape.h"
#include "tests/support/icu_texts.h"
#include "tests/support/random_texts.h"
#include "tests/support/texts.h"

#include <gtest/gtest.h>
#include <unicode/utf16.h>

#include <cctype>
#include <cstdio>

using namespace pinorama;

namespace {
std::u16string expectedInXML(const std::u16string& text)
{
    std::u16string escaped;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t start = at;
        UChar32 codePoint = 0;
        U16_NEXT(text.data(), at, text.size(), codePoint);
        switch (codePoint) {
        case '&': escaped += u"&amp;"; continue;
        case '<': escaped += u"&lt;"; continue;
        case '>': escaped += u"&gt;"; continue;
        case '"': escaped += u"&quot;"; continue;
        case '\t': escaped += u"&#9;"; continue;
        case '\n': escaped += u"&#10;"; continue;
        case '\r': escaped += u"&#13;"; continue;
        default: break;
        }
        // What is left of the characters that XML 1.0 allows, section 2.2.
        const bool isCharacter = (codePoint >= 0x20 && codePoint <= 0xd7ff) ||
                                 (codePoint >= 0xe000 && codePoint <= 0xfffd) ||
                                 codePoint >= 0x10000;
        escaped += isCharacter ? text.substr(start, at - start) : u"\ufffd";
    }
    return escaped;
}

std::u16string expectedInAddress(const std::u16string& text)
{
    std::u16string escaped;
    for (const char byte : test::displayUTF8ByICU(text)) {
        const auto value = static_cast<unsigned char>(byte);
        const bool stays =
            value != 0 && value < 0x80 &&
            (std::isalnum(value) != 0 ||
             std::string_view("-_.!~*'();/?:@&=+$,").find(byte) != std::string_view::npos);
        char written[8] = {byte};
        if (!stays) std::snprintf(written, sizeof written, "%%%02X", unsigned{value});
        for (const char* next = written; *next != '\0'; next++) {
            escaped += static_cast<char16_t>(*next);
        }
    }
    return escaped;
}
}  // namespace

TEST(gpsEscapeForXML, leavesNothingOutAndAddsNothing)
{
    test::forRandomTexts(
        [](const std::u16string& text) {
            const test::Text escaped(gpsEscapeForXML(text));
            ASSERT_EQ(unitsOf(escaped.get()), expectedInXML(text));
        },
        7);
}

TEST(gpsEscapeForAddress, leavesNothingOutAndAddsNothing)
{
    test::forRandomTexts(
        [](const std::u16string& text) {
            const test::Text escaped(gpsEscapeForAddress(text));
            ASSERT_EQ(unitsOf(escaped.get()), expectedInAddress(text));
        },
        13);
}
