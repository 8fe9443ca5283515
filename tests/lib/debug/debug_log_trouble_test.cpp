// The log where it cannot be written, and written by two processes at once.

#include "lib/debug/debug_log.h"
#include "lib/debug/debug_log_file.h"
#include "tests/lib/debug/log_under_test.h"
#include "tests/support/other_process.h"
#include "tests/support/small_disk.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <cstdint>
#include <filesystem>
#include <map>

#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace pinorama;

namespace {
using test::inChild;
using test::kCannotTest;

void writeEveryEntry()
{
    const std::uint8_t pascal[] = {1, 'p'};
    const FSRef ref{"/"};
    EXPECT_EQ(debugAddToLog(pascal), 0);
    EXPECT_EQ(debugAddLong(1), 0);
    EXPECT_EQ(debugAddLongLong(1), 0);
    EXPECT_EQ(debugAddLongHex(1), 0);
    EXPECT_EQ(debugAddUInt16Hex(1), 0);
    EXPECT_EQ(debugAddUInt16Octal(1), 0);
    EXPECT_EQ(debugFormat("format"), 0);
    EXPECT_EQ(debugLogCFString(nullptr), 0);
    EXPECT_EQ(debugAssertFailed(1, "assert", 1), 0);
    EXPECT_EQ(debugLogFilePath(&ref, "path", 1), 0);
    EXPECT_EQ(debugLogFileInformation(&ref, "information", 1), 0);
    EXPECT_EQ(debugProtocoll("detail", "label", 1), 0);
    EXPECT_EQ(debugProtocolLongString("bytes", 5, "label", 1), 0);
    EXPECT_EQ(debugProtocollPString(pascal, "label", 1), 0);
}
}  // namespace

TEST(debugLog, desktopFolderThatCannotBeMadeMakesEveryEntryDoNothing)
{
    const test::LogFolder folder;
    std::filesystem::create_symlink("/dev/null", folder.desktop());
    writeEveryEntry();
    EXPECT_TRUE(std::filesystem::is_symlink(folder.desktop()));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.home()), {}), 1);
}

TEST(debugLog, folderInPlaceOfTheLogMakesEveryEntryDoNothing)
{
    const test::LogFolder folder;
    std::filesystem::create_directories(folder.logPath());
    writeEveryEntry();
    EXPECT_TRUE(std::filesystem::is_empty(folder.logPath()));
}

TEST(debugLog, desktopFolderWithoutWritePermissionStaysAsItIs)
{
    const test::LogFolder folder;
    std::filesystem::create_directories(folder.desktop());
    ASSERT_EQ(chmod(folder.home().c_str(), 0755), 0);
    ASSERT_EQ(chmod(folder.desktop().c_str(), 0555), 0);
    const int status = inChild([] {
        if (!test::becomeNobody()) return kCannotTest;
        writeEveryEntry();
        return debugOpenLogfile() == 0 && !testing::Test::HasFailure() ? 0 : 1;
    });
    ASSERT_EQ(chmod(folder.desktop().c_str(), 0755), 0);
    if (status == kCannotTest) GTEST_SKIP() << "cannot become another user";
    EXPECT_EQ(status, 0);
    EXPECT_TRUE(std::filesystem::is_empty(folder.desktop()));
}

TEST(debugLog, logWithoutWritePermissionStaysAsItIs)
{
    const test::LogFolder folder;
    folder.startLog("earlier\r");
    ASSERT_EQ(chmod(folder.home().c_str(), 0755), 0);
    ASSERT_EQ(chmod(folder.logPath().c_str(), 0444), 0);
    const int status = inChild([] {
        if (!test::becomeNobody()) return kCannotTest;
        writeEveryEntry();
        return debugOpenLogfile() == 0 && !testing::Test::HasFailure() ? 0 : 1;
    });
    if (status == kCannotTest) GTEST_SKIP() << "cannot become another user";
    EXPECT_EQ(status, 0);
    EXPECT_EQ(folder.log(), "earlier\r");
}

TEST(debugLog, deviceThatIsAlwaysFullTakesNothing)
{
    if (access("/dev/full", W_OK) != 0) GTEST_SKIP() << "no /dev/full";
    const test::LogFolder folder;
    std::filesystem::create_directories(folder.desktop());
    std::filesystem::create_symlink("/dev/full", folder.logPath());
    writeEveryEntry();
    EXPECT_TRUE(std::filesystem::is_symlink(folder.logPath()));
}

TEST(debugLog, largestFileSizeKeepsWhatWasThere)
{
    const test::LogFolder folder;
    folder.startLog("earlier\r");
    const int status = inChild([] {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit = {8, 8};
        if (setrlimit(RLIMIT_FSIZE, &limit) != 0) return kCannotTest;
        writeEveryEntry();
        return testing::Test::HasFailure() ? 1 : 0;
    });
    if (status == kCannotTest) GTEST_SKIP() << "cannot limit the size of files";
    EXPECT_EQ(status, 0);
    EXPECT_EQ(folder.log(), "earlier\r");
}

TEST(debugLog, fullDiskKeepsWhatWasThere)
{
    const test::LogFolder folder;
    std::filesystem::create_directories(folder.desktop());
    const int status = inChild([&folder] {
        if (!test::mountSmallDisk(folder.desktop())) return kCannotTest;
        (void)debugFormat("earlier");
        const std::string before = test::readFile(folder.logPath());
        // Fill the log's own last page as well, so that not one byte more fits.
        const std::string rest(4096 - before.size() % 4096, 'x');
        const ForkRef fork = debugOpenLogfile();
        debugWriteBytes(fork, rest.data(), static_cast<std::uint32_t>(rest.size()));
        debugCloseLogFile(fork);
        test::fillDisk(folder.desktop());

        writeEveryEntry();
        return test::readFile(folder.logPath()) == before + rest ? 0 : 1;
    });
    if (status == kCannotTest) GTEST_SKIP() << "cannot mount a small disk here";
    EXPECT_EQ(status, 0);
}

TEST(debugLog, aLogCreatedOnAFullDiskGetsItsEntriesLater)
{
    const test::LogFolder folder;
    std::filesystem::create_directories(folder.desktop());
    const int status = inChild([&folder] {
        if (!test::mountSmallDisk(folder.desktop())) return kCannotTest;
        test::fillDisk(folder.desktop());
        writeEveryEntry();
        EXPECT_EQ(test::readFile(folder.logPath()), "");
        std::filesystem::remove(folder.desktop() + "/filler");
        EXPECT_EQ(debugFormat("room again"), 0);
        // The log was there already, so it gets no banner.
        EXPECT_EQ(test::readFile(folder.logPath()), "room again\r");
        return testing::Test::HasFailure() ? 1 : 0;
    });
    if (status == kCannotTest) GTEST_SKIP() << "cannot mount a small disk here";
    EXPECT_EQ(status, 0);
}

TEST(debugLog, desktopFolderThatVanishesIsMadeAnewWithALog)
{
    const test::LogFolder folder;
    EXPECT_EQ(debugFormat("lost"), 0);
    std::filesystem::remove_all(folder.desktop());
    EXPECT_EQ(debugFormat("kept"), 0);
    EXPECT_EQ(folder.entries(), "kept\r");

    const ForkRef fork = debugOpenLogfile();
    std::filesystem::remove_all(folder.desktop());
    debugWriteCString(fork, "into a file without a name");
    debugCloseLogFile(fork);
    EXPECT_FALSE(std::filesystem::exists(folder.desktop()));
    writeEveryEntry();
    EXPECT_EQ(folder.entries().find("without a name"), std::string::npos);
}

TEST(debugLog, doesNotRecreateAHomeFolderThatVanished)
{
    const test::LogFolder folder;
    const test::ScopedVariable home("HOME", "/proc/no/such/home");
    writeEveryEntry();
    EXPECT_EQ(debugOpenLogfile(), 0);
    EXPECT_TRUE(std::filesystem::is_empty(folder.home()));
}

TEST(debugLog, twoProcessesAtOnceNeverMixTheirWrites)
{
    constexpr int kEntries = 150;
    constexpr std::size_t kLength = 1500;
    const test::LogFolder folder;

    const auto logMany = [](char letter) {
        for (int i = 0; i < kEntries; ++i)
            (void)debugFormat("%s", std::string(kLength, letter).c_str());
        return 0;
    };
    const pid_t other = fork();
    ASSERT_GE(other, 0);
    if (other == 0) _exit(logMany('B'));
    logMany('A');
    int status = 0;
    ASSERT_EQ(waitpid(other, &status, 0), other);
    ASSERT_EQ(status, 0);

    // Pieces of the two may follow each other in any order, but every piece is whole.
    std::string text = folder.log();
    std::map<char, int> pieces;
    std::size_t bannerBytes = 0;
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t end = std::min(text.find_first_not_of(text[i], i), text.size());
        if (text[i] == 'A' || text[i] == 'B') {
            if (end - i >= kLength) {
                ASSERT_EQ((end - i) % kLength, 0u) << "torn at " << i;
                pieces[text[i]] += static_cast<int>((end - i) / kLength);
            } else {
                bannerBytes += end - i;  // the A of "RAM"
            }
        } else if (text[i] == '\r') {
            pieces['\r'] += static_cast<int>(end - i);
        } else {
            bannerBytes += end - i;
        }
        i = end;
    }
    EXPECT_EQ(pieces['A'], kEntries);
    EXPECT_EQ(pieces['B'], kEntries);
    EXPECT_EQ(pieces['\r'], 2 * kEntries);
    EXPECT_EQ(bannerBytes, test::banner().size());
}
