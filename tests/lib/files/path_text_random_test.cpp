// Paths of all kinds of bytes and texts.

#include "lib/files/path_text.h"
#include "tests/support/icu_texts.h"
#include "tests/support/random_texts.h"
#include "tests/support/texts.h"

#include <gtest/gtest.h>
#include <unicode/utf16.h>

using namespace pinorama;

namespace {
std::string expectedBytes(const std::u16string& text)
{
    std::string bytes;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t start = at;
        UChar32 codePoint = 0;
        U16_NEXT(text.data(), at, text.size(), codePoint);
        if (codePoint >= 0xdc80 && codePoint <= 0xdcff) {
            bytes += static_cast<char>(codePoint - 0xdc00);
        } else {
            bytes += test::displayUTF8ByICU(text.substr(start, at - start));
        }
    }
    return bytes;
}
}  // namespace

TEST(createPathText, keepsBytesOfAllKinds)
{
    test::forRandomBytes([](const std::string& bytes) {
        const test::Text text(createPathText(bytes));
        if (const auto units = test::unitsByICU(bytes)) {
            ASSERT_EQ(unitsOf(text.get()), *units);
        }
        ASSERT_EQ(pathBytes(text.get()), bytes);
    });
}

TEST(pathBytes, hasTheBytesOfEachCharacter)
{
    test::forRandomTexts(
        [](const std::u16string& text) {
            const test::Text path(createString(text));
            ASSERT_EQ(pathBytes(path.get()), expectedBytes(text));
        },
        3);
}
