#include "lib/debug/debug_log.h"

#include "lib/objects/object.h"
#include "tests/lib/debug/log_under_test.h"
#include "tests/support/texts.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <sstream>

#include <sys/stat.h>
#include <unistd.h>

using namespace pinorama;

namespace {
const std::uint8_t kPascal[] = {3, 'a', 'b', 'c', 'd'};

std::string inBase(std::uint64_t value, int base)
{
    std::ostringstream text;
    text << (base == 8 ? std::oct : std::hex) << value << '\n';
    return text.str();
}

// Sets a locale with a decimal comma for the C library; a system without one gets its own.
class CommaLocale {
public:
    CommaLocale()
    {
        for (const char* name : {"de_DE.UTF-8", "fr_FR.UTF-8"}) {
            if (std::setlocale(LC_ALL, name) != nullptr) return;
        }
        const std::string make =
            "localedef -i de_DE -f UTF-8 '" + folder_.file("de_DE.UTF-8") + "' >/dev/null 2>&1";
        if (std::system(make.c_str()) != 0) return;
        const test::ScopedVariable place("LOCPATH", folder_.path().c_str());
        std::setlocale(LC_ALL, "de_DE.UTF-8");
    }
    ~CommaLocale() { std::setlocale(LC_ALL, "C"); }
    CommaLocale(const CommaLocale&) = delete;
    CommaLocale& operator=(const CommaLocale&) = delete;

    explicit operator bool() const { return *std::localeconv()->decimal_point == ','; }

private:
    test::TemporaryFolder folder_;
};
}  // namespace

TEST(debugLog, firstEntryGetsABannerAndTheNextOnesDoNot)
{
    const test::LogFolder folder;
    EXPECT_EQ(debugFormat("first"), 0);
    EXPECT_EQ(folder.log(), test::banner() + "first\r");
    EXPECT_EQ(debugFormat("second"), 0);
    EXPECT_EQ(folder.log(), test::banner() + "first\rsecond\r");
    std::filesystem::remove(folder.logPath());
    EXPECT_EQ(debugFormat("third"), 0);
    EXPECT_EQ(folder.log(), test::banner() + "third\r");
}

TEST(debugLog, everyEntryHasItsLayout)
{
    const test::LogFolder folder;
    folder.startLog("");
    EXPECT_EQ(debugAddToLog(kPascal), 0);
    EXPECT_EQ(debugAddLong(-5), 0);
    EXPECT_EQ(debugAddLongLong(UINT64_MAX), 0);
    EXPECT_EQ(debugAddLongHex(static_cast<std::uint32_t>(-1)), 0);
    EXPECT_EQ(debugAddLongHex(0), 0);
    EXPECT_EQ(debugAddUInt16Hex(0xbeef), 0);
    EXPECT_EQ(debugAddUInt16Octal(0100644), 0);
    EXPECT_EQ(debugFormat("\n%s %d", "text", 7), 0);
    EXPECT_EQ(debugLogCFString(test::text("text").take()), 0);
    EXPECT_EQ(debugAssertFailed(-3, "assertion", 70000), 0);
    EXPECT_EQ(debugProtocoll("detail", "label", 12), 0);
    EXPECT_EQ(debugProtocolLongString("a\tb\0c", 5, "label", -1), 0);
    EXPECT_EQ(debugProtocollPString(kPascal, "label", INT32_MIN), 0);

    const std::string expected =
        "abc-5  18446744073709551615  ffffffff\n0\nbeef\n100644\n\ntext 7\r"
        "DATE\tTIME\ttext\r"
        "DATE\tTIME\tassertion\t70000\t-3\n"
        "DATE\tTIME\tlabel\t12  \tdetail\r"
        "DATE\tTIME\tlabel\t-1  \ta\tb" +
        std::string(1, '\0') +
        "c\r"
        "DATE\tTIME\tlabel\t-2147483648  \tabc\r";
    EXPECT_EQ(folder.log(), expected);
}

TEST(debugLog, nullTextsCountAsEmpty)
{
    const test::LogFolder folder;
    folder.startLog("");
    (void)debugAddToLog(nullptr);
    (void)debugProtocoll(nullptr, nullptr, 1);
    (void)debugProtocolLongString(nullptr, 5, nullptr, 2);
    (void)debugProtocollPString(nullptr, nullptr, 3);
    (void)debugAssertFailed(4, nullptr, 5);
    (void)debugLogCFString(nullptr);
    EXPECT_EQ(folder.log(),
              "DATE\tTIME\t\t1  \t\rDATE\tTIME\t\t2  \t\rDATE\tTIME\t\t3  \t\r"
              "DATE\tTIME\t\t5\t4\nDATE\tTIME\t\r");
}

TEST(debugFormat, writesTheFirst2047Bytes)
{
    for (const std::size_t length : {0u, 1u, 2046u, 2047u, 2048u, 5000u}) {
        const test::LogFolder folder;
        folder.startLog("");
        EXPECT_EQ(debugFormat("%s", std::string(length, 'x').c_str()), 0);
        EXPECT_EQ(folder.log(), std::string(std::min<std::size_t>(length, 2047), 'x') + "\r");
    }
}

TEST(debugFormat, numbersHaveAPointInEveryLocale)
{
    const CommaLocale comma;
    if (!comma) GTEST_SKIP() << "no locale with a decimal comma, and none can be made";
    const test::LogFolder folder;
    folder.startLog("");
    EXPECT_EQ(debugFormat("%.2f", 1234.5), 0);
    EXPECT_EQ(folder.log(), "1234.50\r");
    EXPECT_EQ(*std::localeconv()->decimal_point, ',');
}

TEST(debugLogCFString, emptyTextGivesDateTimeAndReturnOnlyAndStays)
{
    const test::LogFolder folder;
    folder.startLog("");
    const test::Text empty = test::text("");
    EXPECT_EQ(debugLogCFString(empty.get()), 0);
    EXPECT_EQ(folder.log(), "DATE\tTIME\t\r");
    EXPECT_EQ(uCFGetRetainCount(empty.get()), 1);
}

TEST(debugLogCFString, consumesTheTextOnlyWhenTheLogOpens)
{
    const test::Text text = test::text("abc");
    {
        const test::LogFolder folder;
        std::filesystem::create_directories(folder.logPath());
        EXPECT_EQ(debugLogCFString(text.get()), 0);
        EXPECT_EQ(uCFGetRetainCount(text.get()), 1);
    }
    const test::LogFolder folder;
    (void)uCFRetain(text.get());
    EXPECT_EQ(debugLogCFString(text.get()), 0);
    EXPECT_EQ(uCFGetRetainCount(text.get()), 1);
}

TEST(debugLogFilePath, leavesOutNullTextAndNumberZero)
{
    const test::TemporaryFolder files;
    const FSRef ref{files.write("a file.jpg", "x")};
    const struct {
        const char* name;
        const char* text;
        std::int32_t number;
        const char* expected;
    } rows[] = {
        {"neither", nullptr, 0, ""},        {"text", "text", 0, "text\t"},
        {"empty text", "", 0, "\t"},        {"number", nullptr, -7, "-7  \t"},
        {"both", "text", 7, "text\t7  \t"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const test::LogFolder folder;
        folder.startLog("");
        EXPECT_EQ(debugLogFilePath(&ref, row.text, row.number), 0);
        EXPECT_EQ(folder.log(), "DATE\tTIME\t" + std::string(row.expected) + ref.path + "\r");
    }
}

TEST(debugLogFilePath, writesThePathsOwnBytes)
{
    const test::TemporaryFolder files;
    const test::LogFolder folder;
    folder.startLog("");
    const FSRef ref{files.write("K\xc3\xa4se \xff.jpg", "x")};
    EXPECT_EQ(debugLogFilePath(&ref, nullptr, 0), 0);
    EXPECT_EQ(folder.log(), "DATE\tTIME\t" + ref.path + "\r");
}

TEST(debugLogFilePath, writesNoPathThatCannotBeMade)
{
    const test::TemporaryFolder files;
    const test::LogFolder folder;
    folder.startLog("");
    const FSRef gone{files.file("gone")};
    EXPECT_EQ(debugLogFilePath(&gone, "gone", 0), 0);
    EXPECT_EQ(debugLogFilePath(nullptr, "null", 0), 0);
    EXPECT_EQ(folder.log(), "DATE\tTIME\tgone\t\rDATE\tTIME\tnull\t\r");
}

TEST(debugLogFilePath, writesPathsOfUpTo1024Bytes)
{
    const test::TemporaryFolder files;
    std::string path = files.path();
    while (path.size() < 900) path += "/" + std::string(99, 'd');
    path += "/" + std::string(1024 - path.size() - 1, 'e');
    std::filesystem::create_directories(path + "/f");
    for (const std::string& name : {path, path + "/f"}) {
        const test::LogFolder folder;
        folder.startLog("");
        const FSRef ref{name};
        EXPECT_EQ(debugLogFilePath(&ref, nullptr, 0), 0);
        EXPECT_EQ(folder.log(), "DATE\tTIME\t" + (name.size() <= 1024 ? name : "") + "\r");
    }
}

TEST(debugLogFileInformation, addsSixNumbers)
{
    const test::TemporaryFolder files;
    const FSRef ref{files.write("file.jpg", "x")};
    ASSERT_EQ(chmod(ref.path.c_str(), 0640), 0);
    const test::LogFolder folder;
    folder.startLog("");
    EXPECT_EQ(debugLogFileInformation(&ref, "text", 7), 0);
    EXPECT_EQ(folder.log(), "DATE\tTIME\ttext\t7  \t" + ref.path + "\r0\n1\n" +
                                inBase(geteuid(), 16) + inBase(getegid(), 16) + "6\n100640\n");
}

TEST(debugLogFileInformation, isAllZeroForAMissingFile)
{
    const FSRef gone{"/nowhere/at/all"};
    for (const FSRef* ref : {&gone, static_cast<const FSRef*>(nullptr)}) {
        const test::LogFolder folder;
        folder.startLog("");
        EXPECT_EQ(debugLogFileInformation(ref, nullptr, 0), 0);
        EXPECT_EQ(folder.log(), "DATE\tTIME\t\r0\n0\n0\n0\n0\n0\n");
    }
}
