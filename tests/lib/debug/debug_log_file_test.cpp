#include "lib/debug/debug_log_file.h"

#include "lib/objects/object.h"
#include "tests/lib/debug/log_under_test.h"
#include "tests/support/texts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>

#include <sys/syscall.h>
#include <unistd.h>

using namespace pinorama;

namespace {
int gFlushes = 0;  // calls of fsync by this program
}  // namespace

// Takes the C library's place in this program.
extern "C" int fsync(int descriptor)
{
    ++gFlushes;
    return static_cast<int>(syscall(SYS_fsync, descriptor));
}

TEST(debugOpenLogfile, makesTheDesktopFolderAndANewLogWithABanner)
{
    const test::LogFolder folder;
    const ForkRef fork = debugOpenLogfile();
    EXPECT_GT(fork, 2);
    debugCloseLogFile(fork);
    EXPECT_EQ(folder.log(), test::banner());
}

TEST(debugOpenLogfile, writesNoBannerIntoAnExistingLog)
{
    const test::LogFolder folder;
    for (const char* content : {"", "earlier\r"}) {
        folder.startLog(content);
        const ForkRef fork = debugOpenLogfile();
        EXPECT_GT(fork, 2);
        debugWriteCString(fork, "entry");
        debugCloseLogFile(fork);
        EXPECT_EQ(folder.log(), std::string(content) + "entry");
    }
}

TEST(debugOpenLogfile, usesTheDesktopFolderOfTheUserDirectories)
{
    const test::LogFolder folder;
    std::filesystem::create_directories(folder.home() + "/.config");
    std::filesystem::create_directories(folder.home() + "/Schreibtisch");
    FILE* file = std::fopen((folder.home() + "/.config/user-dirs.dirs").c_str(), "w");
    ASSERT_NE(file, nullptr);
    std::fputs("XDG_DESKTOP_DIR=\"$HOME/Schreibtisch\"\n", file);
    std::fclose(file);
    debugCloseLogFile(debugOpenLogfile());
    EXPECT_EQ(test::readFile(folder.home() + "/Schreibtisch/KVL Log.txt"), test::banner());
    EXPECT_FALSE(std::filesystem::exists(folder.desktop()));
}

TEST(debugOpenLogfile, givesZeroIfTheLogCannotBeCreated)
{
    {
        const test::LogFolder folder;  // a file where the desktop folder should be
        std::filesystem::create_symlink("/dev/null", folder.desktop());
        EXPECT_EQ(debugOpenLogfile(), 0);
    }
    {
        const test::LogFolder folder;  // a folder where the log should be
        std::filesystem::create_directories(folder.logPath());
        EXPECT_EQ(debugOpenLogfile(), 0);
    }
    {
        const test::LogFolder folder;  // a link that leads nowhere
        std::filesystem::create_directories(folder.desktop());
        std::filesystem::create_symlink("nowhere/at/all", folder.logPath());
        EXPECT_EQ(debugOpenLogfile(), 0);
    }
}

TEST(debugCloseLogFile, flushesTheLogToTheDisk)
{
    const test::LogFolder folder;
    const ForkRef fork = debugOpenLogfile();
    gFlushes = 0;
    debugCloseLogFile(fork);
    EXPECT_EQ(gFlushes, 1);
}

TEST(debugCloseLogFile, ignoresALogThatIsNotOpen)
{
    gFlushes = 0;
    debugCloseLogFile(0);
    EXPECT_EQ(gFlushes, 0);
}

TEST(debugWriteBytes, areAppendedAsTheyAre)
{
    const test::LogFolder folder;
    const ForkRef fork = debugOpenLogfile();
    debugWriteCString(fork, "text");
    debugWriteTab(fork);
    debugWriteSInt32(fork, -5);
    debugWriteSInt32(fork, INT32_MIN);
    debugWriteUInt64(fork, 0);
    debugWriteUInt64(fork, UINT64_MAX);
    debugWriteCString(fork, "");
    debugWriteCString(fork, nullptr);
    debugWriteBytes(fork, "a\0b", 3);
    debugWriteReturn(fork);
    debugCloseLogFile(fork);
    EXPECT_EQ(folder.entries(),
              std::string("text\t-5  -2147483648  0  18446744073709551615  a") + '\0' + "b\r");
}

TEST(debugWriteBytes, goAfterWhatOthersHaveAppendedMeanwhile)
{
    const test::LogFolder folder;
    folder.startLog("");
    const ForkRef first = debugOpenLogfile();
    const ForkRef second = debugOpenLogfile();
    debugWriteCString(first, "one ");
    debugWriteCString(second, "two ");
    debugWriteCString(first, "three");
    debugCloseLogFile(first);
    debugCloseLogFile(second);
    EXPECT_EQ(folder.log(), "one two three");
}

TEST(debugWriteAndReleaseCFString, writesMacRomanElseUTF8)
{
    const struct {
        const char* name;
        const char* text;
        std::string expected;
    } rows[] = {
        {"plain", "plain", "plain"},
        {"all in MacRoman", "Käse für 5 €", "K\x8ase f\x9fr 5 \xdb"},
        {"one character outside", "Käse 日", "Käse 日"},
        {"line ends", "a\rb\nc\td", "a\rb\nc\td"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const test::LogFolder folder;
        const ForkRef fork = debugOpenLogfile();
        debugWriteAndReleaseCFString(fork, test::text(row.text).take());
        debugCloseLogFile(fork);
        EXPECT_EQ(folder.entries(), row.expected);
    }
}

TEST(debugWriteAndReleaseCFString, stopsAtTheFirstZeroAndWritesNoLoneSurrogate)
{
    const test::LogFolder folder;
    const ForkRef fork = debugOpenLogfile();
    debugWriteAndReleaseCFString(fork, createString(std::u16string_view(u"ab\0cd", 5)));
    const char16_t lone[] = {u'x', 0xd800};
    debugWriteAndReleaseCFString(fork, createString(std::u16string_view(lone, 2)));
    debugCloseLogFile(fork);
    EXPECT_EQ(folder.entries(), "ab");
}

TEST(debugWriteAndReleaseCFString, consumesEveryTextButAnEmptyOne)
{
    const test::LogFolder folder;
    const ForkRef fork = debugOpenLogfile();
    const char16_t lone[] = {u'x', 0xd800};
    const struct {
        const char* name;
        test::Text text;
        int left;
    } rows[] = {
        {"text", test::text("abc"), 1},
        {"lone surrogate", test::Text(createString(std::u16string_view(lone, 2))), 1},
        {"empty", test::text(""), 2},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        (void)uCFRetain(row.text.get());
        debugWriteAndReleaseCFString(fork, row.text.get());
        EXPECT_EQ(uCFGetRetainCount(row.text.get()), row.left);
        if (row.left == 2) releaseObject(row.text.get());
    }
    debugWriteAndReleaseCFString(fork, nullptr);
    debugCloseLogFile(fork);
    EXPECT_EQ(folder.entries(), "abc");
}

TEST(debugWriteDateTime, followsTheLocale)
{
    const struct {
        const char* locale;
        const char* pattern;
    } rows[] = {
        {"en_US.UTF-8", "[0-9]+/[0-9]+/[0-9]+\t[0-9]+:[0-9]+:[0-9]+ [AP]M\t"},
        {"de_DE.UTF-8", "[0-9]+[.][0-9]+[.][0-9]+\t[0-9]+:[0-9]+:[0-9]+\t"},
    };
    for (const auto& row : rows) {
        const test::LogFolder folder;
        folder.startLog("");
        const test::ScopedVariable locale("LC_ALL", row.locale);
        const ForkRef fork = debugOpenLogfile();
        debugWriteDateTime(fork);
        debugCloseLogFile(fork);
        EXPECT_THAT(test::readFile(folder.logPath()), testing::MatchesRegex(row.pattern));
    }
}
