// The byte forms of all kinds of texts and the texts of all kinds of bytes, beside ICU's: what is
// counted is what is written.

#include "lib/strings/string_holder.h"
#include "lib/strings/tov_bytes.h"
#include "lib/strings/tov_file.h"
#include "lib/strings/tov_search.h"
#include "lib/strings/tov_string.h"
#include "tests/support/environment.h"
#include "tests/support/icu_texts.h"
#include "tests/support/random_texts.h"
#include "tests/support/texts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

using namespace pinorama;

namespace {
std::u16string_view beforeNull(const std::u16string& text)
{
    return std::u16string_view(text).substr(0, text.find(u'\0'));
}

// The whole text has to convert, although its byte form ends at the first U+0000.
std::string expectedUTF8(const std::u16string& text)
{
    return test::utf8ByICU(text) ? *test::utf8ByICU(beforeNull(text)) : "";
}

std::string expectedMacRoman(const std::u16string& text)
{
    return test::macRomanByICU(text) ? *test::macRomanByICU(beforeNull(text)) : expectedUTF8(text);
}

using CopyFunction = void (*)(TovStringRef, char*, std::uint32_t*);

// What a copy function writes into a room of `size` bytes, all of which it has to fill.
std::string copied(CopyFunction copy, TovStringRef string, std::uint32_t size)
{
    return test::writtenInto<char>(size, [&](char* dest) {
        std::uint32_t written = 999;
        copy(string, dest, &written);
        EXPECT_EQ(written, size);
    });
}

std::int32_t countOf(const std::string& bytes)
{
    return static_cast<std::int32_t>(bytes.size());
}
}  // namespace

TEST(TovStringCopyToUTF8, writesAsManyBytesAsAreCounted)
{
    test::forRandomTexts(
        [](const std::u16string& text) {
            const StringHolder string(createString(text));
            const std::string expected = expectedUTF8(text);
            ASSERT_EQ(TovStringGetUTF8Size(string.get()), expected.size());
            ASSERT_EQ(copied(TovStringCopyToUTF8, string.get(), TovStringGetUTF8Size(string.get())),
                      expected);
        },
        3);
}

TEST(TovStringCopyToMacRoman, writesAsManyBytesAsAreCounted)
{
    test::forRandomTexts(
        [](const std::u16string& text) {
            const StringHolder string(createString(text));
            const std::string expected = expectedMacRoman(text);
            ASSERT_EQ(TovStringGetMacRomanSize(string.get()), expected.size());
            ASSERT_EQ(copied(TovStringCopyToMacRoman, string.get(),
                             TovStringGetMacRomanSize(string.get())),
                      expected);
        },
        3);
}

TEST(TovStringCopyToPString, writesTheLengthByteAndThatManyMore)
{
    test::forRandomTexts(
        [](const std::u16string& text) {
            const StringHolder string(createString(text));
            const auto expected = test::macRomanByICU(text);
            const std::size_t room = 1 + (expected ? text.size() : 0);
            const std::string written = test::writtenInto<char>(room, [&](char* dest) {
                EXPECT_EQ(
                    TovStringCopyToPString(string.get(), reinterpret_cast<std::uint8_t*>(dest)),
                    expected.has_value());
            });
            ASSERT_EQ(static_cast<std::uint8_t>(written[0]), room - 1);
            ASSERT_EQ(written.substr(1), expected.value_or(""));
        },
        3);
}

TEST(TovStringFromUTF8, hasTheUnitsThatAreCounted)
{
    test::forRandomBytes([](const std::string& bytes) {
        const StringHolder string(TovStringFromUTF8(bytes.data(), countOf(bytes)));
        const auto decoded = test::unitsByICU(bytes);
        ASSERT_EQ(unitsOf(string.get()), decoded ? *decoded : test::macRomanUnitsByICU(bytes));
    });
}

TEST(TovStringAppendCString, addsAUnitForEachByte)
{
    test::forRandomBytes([](const std::string& bytes) {
        StringHolder target(TovStringCreateMutable());
        TovStringAppendCString(target.slot(), "\x8e");
        TovStringAppendCString(target.slot(), bytes.c_str());
        ASSERT_EQ(unitsOf(target.get()), u"\u00e9" + test::macRomanUnitsByICU(bytes.c_str()));
    });
}

TEST(TovStringReplaceCharacter, keepsTheLengthOfTheByteForm)
{
    test::forRandomTexts(
        [](const std::u16string& text) {
            const StringHolder string(createString(text));
            const StringHolder replaced(TovStringReplaceCharacter(string.get(), u'%', u'e'));
            const std::string bytes = expectedUTF8(text);
            if (bytes.empty()) {
                ASSERT_EQ(replaced.get(), nullptr);
                return;
            }
            std::u16string expected(beforeNull(text));
            std::replace(expected.begin(), expected.end(), u'%', u'e');
            ASSERT_EQ(unitsOf(replaced.get()), expected);
        },
        3);
}

TEST(TovStringWriteToFile, makesAFileOfTheCountedBytes)
{
    const test::TemporaryFolder folder;
    const std::string path = folder.file("text");
    const test::Text pathText = test::text(path);
    test::forRandomTexts(
        [&](const std::u16string& text) {
            const StringHolder string(createString(text));
            std::filesystem::remove(path);  // a longer one would keep its end
            ASSERT_EQ(TovStringWriteToFile(string.get(), pathText.get(), kTextFileUTF8), 0);
            ASSERT_EQ(test::readFile(path), expectedUTF8(text));
        },
        41);
}
