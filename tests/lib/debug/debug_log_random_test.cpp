// Entries of all kinds of texts and bytes: the log has just them.

#include "lib/debug/debug_log.h"
#include "lib/debug/debug_log_file.h"
#include "tests/lib/debug/log_under_test.h"
#include "tests/support/icu_texts.h"
#include "tests/support/random_texts.h"
#include "tests/support/texts.h"

#include <gtest/gtest.h>

#include <cstring>

using namespace pinorama;

namespace {
constexpr std::size_t kStride = 67;  // each entry opens the log and brings it to the disk

std::string raw(const test::LogFolder& folder)
{
    return test::readFile(folder.logPath());
}

// A text that MacRoman lacks goes in as UTF-8, one with a lone surrogate not at all.
std::string expectedPiece(const std::u16string& text)
{
    const std::u16string_view shown = std::u16string_view(text).substr(0, text.find(u'\0'));
    if (test::macRomanByICU(text)) return *test::macRomanByICU(shown);
    return test::utf8ByICU(text) ? *test::utf8ByICU(shown) : "";
}
}  // namespace

TEST(debugWriteAndReleaseCFString, writesTheBytesOfTheTextAndNoMore)
{
    const test::LogFolder folder;
    folder.startLog("");
    const ForkRef fork = debugOpenLogfile();
    std::string expected;
    test::forRandomTexts(
        [&](const std::u16string& text) {
            test::Text owned(createString(text));
            debugWriteAndReleaseCFString(fork, text.empty() ? nullptr : owned.take());
            debugWriteReturn(fork);
            expected += expectedPiece(text) + "\r";
        },
        kStride);
    debugCloseLogFile(fork);
    EXPECT_EQ(raw(folder), expected);
}

TEST(debugFormat, writesTheBytesOfALineAndNoMore)
{
    const test::LogFolder folder;
    folder.startLog("");
    std::string expected;
    test::forRandomBytes(
        [&](const std::string& bytes) {
            (void)debugFormat("<%s>%s", bytes.c_str(), std::string(1800, '.').c_str());
            std::string line(1, '<');
            line.append(bytes.c_str()).append(1, '>').append(1800, '.');
            expected += line.substr(0, 2047) + "\r";
        },
        kStride);
    EXPECT_EQ(raw(folder), expected);
}

TEST(debugProtocolLongString, writesTheGivenNumberOfBytes)
{
    const test::LogFolder folder;
    folder.startLog("");
    test::forRandomBytes(
        [&](const std::string& bytes) {
            folder.startLog("");
            (void)debugProtocolLongString(bytes.data(), static_cast<std::uint32_t>(bytes.size()),
                                          "label", 7);
            const std::string entry = raw(folder);
            const std::size_t label = entry.find("label\t7  \t");
            ASSERT_NE(label, std::string::npos);
            ASSERT_EQ(entry.substr(label + std::strlen("label\t7  \t")), bytes + "\r");
        },
        kStride);
}

TEST(debugAddToLog, writesTheBytesOfAPascalString)
{
    const test::LogFolder folder;
    folder.startLog("");
    std::string expected;
    test::forRandomBytes(
        [&](const std::string& bytes) {
            const std::string pString = static_cast<char>(bytes.size()) + bytes;
            (void)debugAddToLog(reinterpret_cast<const std::uint8_t*>(pString.data()));
            expected += bytes;
        },
        kStride);
    EXPECT_EQ(raw(folder), expected);
}
