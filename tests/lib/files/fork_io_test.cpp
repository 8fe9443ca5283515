#include "lib/files/fork_io.h"

#include "base/alloc.h"
#include "base/status.h"
#include "lib/files/file_reference.h"
#include "tests/support/environment.h"
#include "tests/support/permissions.h"
#include "tests/support/texts.h"

#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <limits>
#include <string>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace pinorama;

namespace {
// Opens a file for reading and writing that is there already.
ForkCloser openFork(const std::string& path)
{
    const FSRef ref = {path};
    ForkRef fork = 0;
    EXPECT_EQ(feOpenExistingFileRef(&ref, &fork, 1, 1), 0);
    return ForkCloser(fork);
}

// A number that names no open file.
ForkRef closedFork()
{
    const test::TemporaryFolder folder;
    const ForkCloser fork = openFork(folder.write("f", ""));
    return fork.get();
}
}  // namespace

TEST(feInitialize, leavesTheNameOfTheDataForkEmpty)
{
    EXPECT_EQ(forkName.length, 0);
    EXPECT_EQ(feInitialize(), 0);
    EXPECT_EQ(forkName.length, 0);
}

TEST(feCreateAndOpenTextFile, createsAMissingFileForReadingAndWriting)
{
    const test::TemporaryFolder folder;
    const std::string path = folder.file("new \u00e4.txt");
    const mode_t earlier = umask(027);
    ForkRef fork = 0;
    EXPECT_EQ(feCreateAndOpenTextFile(test::text(path).get(), &fork), 0);
    umask(earlier);
    const ForkCloser closer(fork);
    EXPECT_GT(fork, 2);

    struct stat facts = {};
    ASSERT_EQ(fstat(fork, &facts), 0);
    EXPECT_EQ(facts.st_size, 0);
    EXPECT_EQ(facts.st_mode & 0777, 0750u) << "all permissions that the umask leaves";
    EXPECT_EQ(fcntl(fork, F_GETFL) & O_ACCMODE, O_RDWR);
    EXPECT_NE(fcntl(fork, F_GETFD) & FD_CLOEXEC, 0);
}

TEST(feCreateAndOpenTextFile, keepsWhatTheFileHolds)
{
    const test::TemporaryFolder folder;
    const std::string path = folder.write("old.txt", std::string(100, 'o'));
    ForkRef fork = 0;
    ASSERT_EQ(feCreateAndOpenTextFile(test::text(path).get(), &fork), 0);
    EXPECT_EQ(feWriteToFile(fork, 0, 10, "0123456789"), 0);
    EXPECT_EQ(feCloseFork(fork), 0);
    EXPECT_EQ(test::readFile(path), "0123456789" + std::string(90, 'o'));
}

TEST(feCreateAndOpenTextFile, missingFolderGivesTheStatusOfTheReference)
{
    const test::TemporaryFolder folder;
    const std::string file = folder.write("file", "");
    const struct {
        const char* name;
        std::string path;
        std::int32_t status;
    } rows[] = {
        {"no such folder", folder.file("missing/a.txt"), kErrNotFound},
        {"a file as folder", file + "/a.txt", kErrNotAFolder},
        {"empty path", "", kErrNotFound},
        {"a folder", folder.path(), kErrInputOutput},
        {"name too long", folder.file(std::string(256, 'n')), kErrBadName},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        ForkRef fork = 77;
        EXPECT_EQ(feCreateAndOpenTextFile(test::text(row.path).get(), &fork), row.status);
        EXPECT_EQ(fork, 0);
    }
    ForkRef fork = 77;
    EXPECT_EQ(feCreateAndOpenTextFile(nullptr, &fork), kErrNotFound);
}

TEST(feCreateAndOpenTextFile, followsALinkToAFileThatIsNotThereYet)
{
    const test::TemporaryFolder folder;
    std::filesystem::create_symlink("target.txt", folder.file("link.txt"));
    ForkRef fork = 0;
    ASSERT_EQ(feCreateAndOpenTextFile(test::text(folder.file("link.txt")).get(), &fork), 0);
    const ForkCloser closer(fork);
    EXPECT_EQ(feWriteToFile(fork, 0, 2, "ok"), 0);
    EXPECT_EQ(test::readFile(folder.file("target.txt")), "ok");
}

TEST(feCreateAndOpenTextFile, givesMinus108WhenMemoryRunsOut)
{
    const test::TemporaryFolder folder;
    const test::Text path = test::text(folder.file("a.txt"));
    ForkRef fork = 77;
    baseFailAllocation(1);
    EXPECT_EQ(feCreateAndOpenTextFile(path.get(), &fork), kErrNoMemory);
    baseFailAllocation(0);
    EXPECT_EQ(fork, 0);
    EXPECT_FALSE(std::filesystem::exists(folder.file("a.txt")));
}

TEST(feOpenExistingFileRef, writesOnlyWhenTheFlagIsExactlyOne)
{
    const test::TemporaryFolder folder;
    const FSRef ref = {folder.write("f", "content")};
    for (const int flag : {0, 1, 2, 3, 255}) {
        SCOPED_TRACE(flag);
        ForkRef fork = 0;
        ASSERT_EQ(feOpenExistingFileRef(&ref, &fork, static_cast<std::uint8_t>(flag), 1), 0);
        const ForkCloser closer(fork);
        EXPECT_EQ(fcntl(fork, F_GETFL) & O_ACCMODE, flag == 1 ? O_RDWR : O_RDONLY);
        EXPECT_EQ(feWriteToFile(fork, 0, 1, "C"), flag == 1 ? 0 : kErrNotOpen);
    }
}

TEST(feOpenExistingFileRef, hasNoResourceForks)
{
    const test::TemporaryFolder folder;
    const FSRef ref = {folder.write("f", "")};
    for (const int flag : {0, 2, 255}) {
        SCOPED_TRACE(flag);
        ForkRef fork = 77;
        EXPECT_EQ(feOpenExistingFileRef(&ref, &fork, 1, static_cast<std::uint8_t>(flag)), -1);
        EXPECT_EQ(fork, 0);
    }
    const FSRef missing = {folder.file("missing")};
    ForkRef fork = 77;
    EXPECT_EQ(feOpenExistingFileRef(&missing, &fork, 1, 0), kErrNotFound);
}

TEST(feOpenExistingFileRef, refusesWhatCannotBeOpened)
{
    const test::TemporaryFolder folder;
    const struct {
        const char* name;
        std::string path;
        std::int32_t status;
    } rows[] = {
        {"missing", folder.file("missing"), kErrNotFound},
        {"folder", folder.path(), kErrInputOutput},
        {"empty reference", "", kErrNotFound},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const FSRef ref = {row.path};
        for (const int write : {0, 1}) {
            ForkRef fork = 77;
            EXPECT_EQ(feOpenExistingFileRef(&ref, &fork, static_cast<std::uint8_t>(write), 1),
                      row.status);
            EXPECT_EQ(fork, 0);
        }
    }
}

TEST(feOpenExistingFileRef, reportsMissingPermission)
{
    const test::TemporaryFolder folder;
    ASSERT_EQ(chmod(folder.path().c_str(), 0755), 0);
    const FSRef ref = {folder.write("f", "")};
    ASSERT_EQ(chmod(ref.path.c_str(), 0444), 0);
    const test::WithoutPrivileges nobody;
    ForkRef fork = 0;
    EXPECT_EQ(feOpenExistingFileRef(&ref, &fork, 1, 1), kErrNoPermission);
    EXPECT_EQ(feOpenExistingFileRef(&ref, &fork, 0, 1), 0);
    EXPECT_EQ(feCloseFork(fork), 0);
}

TEST(feCreateAndOpenTextFile, findsNoFileWhereItMayNotMakeOne)
{
    const test::TemporaryFolder folder;
    ASSERT_EQ(chmod(folder.path().c_str(), 0555), 0);
    const test::WithoutPrivileges nobody;
    ForkRef fork = 0;
    // Nothing was made, and that is what the reference finds.
    EXPECT_EQ(feCreateAndOpenTextFile(test::text(folder.file("f")).get(), &fork), kErrNotFound);
    EXPECT_EQ(fork, 0);
}

TEST(feOpenExistingFileRef, doesNotWaitForAPipesOtherEnd)
{
    const test::TemporaryFolder folder;
    const FSRef ref = {folder.file("pipe")};
    ASSERT_EQ(mkfifo(ref.path.c_str(), 0600), 0);
    ForkRef fork = 0;
    EXPECT_EQ(feOpenExistingFileRef(&ref, &fork, 0, 1), 0);
    const ForkCloser closer(fork);
    char byte = 0;
    EXPECT_EQ(feReadFromFile(fork, 0, 1, &byte), kErrInputOutput);
}

TEST(feOpenExistingFileRef, neverReplacesAStandardStream)
{
    const test::TemporaryFolder folder;
    const FSRef ref = {folder.write("f", "")};
    const int kept = fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 10);
    close(STDIN_FILENO);
    ForkRef fork = 0;
    EXPECT_EQ(feOpenExistingFileRef(&ref, &fork, 0, 1), 0);
    const ForkCloser closer(fork);
    EXPECT_GT(fork, 2);
    EXPECT_EQ(fcntl(STDIN_FILENO, F_GETFD), -1) << "0 stays free";
    if (kept >= 0) {
        dup2(kept, STDIN_FILENO);
        close(kept);
    }
}

TEST(feCloseFork, refusesWhatIsNotOpen)
{
    EXPECT_EQ(feCloseFork(closedFork()), kErrNotOpen);
    for (const ForkRef fork : {-1, 0, 1, 2}) {
        SCOPED_TRACE(fork);
        EXPECT_EQ(feCloseFork(fork), kErrNotOpen);
    }
    EXPECT_NE(fcntl(STDOUT_FILENO, F_GETFD), -1) << "the standard streams stay open";
}

TEST(feReadFromFile, readsWholeRangesOnly)
{
    const test::TemporaryFolder folder;
    const ForkCloser fork = openFork(folder.write("f", "0123456789"));
    const struct {
        const char* name;
        std::int64_t offset;
        std::uint32_t count;
        std::int32_t status;
        const char* read;
    } rows[] = {
        {"start", 0, 3, 0, "012"},
        {"all", 0, 10, 0, "0123456789"},
        {"end", 9, 1, 0, "9"},
        {"one past the end", 9, 2, kErrShortTransfer, nullptr},
        {"at the end", 10, 1, kErrShortTransfer, nullptr},
        {"beyond the end", 1000, 1, kErrShortTransfer, nullptr},
        {"nothing at the end", 10, 0, 0, ""},
        {"nothing beyond the end", 1000, 0, 0, ""},
        {"before the start", -1, 1, kErrBadArgument, nullptr},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        char buffer[16] = {};
        EXPECT_EQ(feReadFromFile(fork.get(), row.offset, row.count, buffer), row.status);
        if (row.status == 0) {
            EXPECT_STREQ(buffer, row.read);
        }
    }
}

TEST(feWriteToFile, overwritesAndGrows)
{
    const test::TemporaryFolder folder;
    const std::string path = folder.write("f", "0123456789");
    const ForkCloser fork = openFork(path);
    EXPECT_EQ(feWriteToFile(fork.get(), 3, 2, "ab"), 0);
    EXPECT_EQ(test::readFile(path), "012ab56789");
    EXPECT_EQ(feWriteToFile(fork.get(), 9, 3, "xyz"), 0);
    EXPECT_EQ(test::readFile(path), "012ab5678xyz");
    EXPECT_EQ(feWriteToFile(fork.get(), 14, 1, "!"), 0);
    EXPECT_EQ(test::readFile(path), std::string("012ab5678xyz\0\0!", 15));
    EXPECT_EQ(feWriteToFile(fork.get(), 100, 0, nullptr), 0);
    EXPECT_EQ(test::readFile(path).size(), 15u);
    EXPECT_EQ(feWriteToFile(fork.get(), -1, 1, "?"), kErrBadArgument);
}

TEST(feWriteToFile, keepsLargeOffsets)
{
    const test::TemporaryFolder folder;
    const ForkCloser fork = openFork(folder.write("f", ""));
    const std::int64_t offset = (std::int64_t{1} << 32) + 5;
    ASSERT_EQ(feWriteToFile(fork.get(), offset, 1, "x"), 0);
    std::int64_t size = 0;
    EXPECT_EQ(feGetEOF(fork.get(), &size), 0);
    EXPECT_EQ(size, offset + 1);
    char byte = 0;
    EXPECT_EQ(feReadFromFile(fork.get(), offset, 1, &byte), 0);
    EXPECT_EQ(byte, 'x');
}

TEST(feWriteToFile, reportsThatTheDiskIsFull)
{
    const FSRef full = {"/dev/full"};
    ForkRef fork = 0;
    if (feOpenExistingFileRef(&full, &fork, 1, 1) != 0) GTEST_SKIP() << "there is no /dev/full";
    const ForkCloser closer(fork);
    EXPECT_EQ(feWriteToFile(fork, 0, 4, "text"), kErrDiskFull);
    EXPECT_EQ(feAppendToFile(fork, 4, "text"), kErrDiskFull);
}

TEST(feAppendToFile, writesAtTheCurrentEnd)
{
    const test::TemporaryFolder folder;
    const std::string path = folder.write("f", "start");
    const ForkCloser one = openFork(path);
    const ForkCloser other = openFork(path);
    ASSERT_EQ(lseek(one.get(), 1, SEEK_SET), 1);
    EXPECT_EQ(feAppendToFile(one.get(), 2, "+1"), 0);
    EXPECT_EQ(feAppendToFile(other.get(), 2, "+2"), 0);
    EXPECT_EQ(feAppendToFile(one.get(), 2, "+3"), 0);
    EXPECT_EQ(feAppendToFile(one.get(), 0, nullptr), 0);
    EXPECT_EQ(test::readFile(path), "start+1+2+3");
}

TEST(feGetEOF, givesTheLength)
{
    const test::TemporaryFolder folder;
    for (const std::size_t length : {0u, 1u, 70000u}) {
        const ForkCloser fork = openFork(folder.write("f", std::string(length, 'x')));
        std::int64_t size = -5;
        EXPECT_EQ(feGetEOF(fork.get(), &size), 0);
        EXPECT_EQ(size, static_cast<std::int64_t>(length));
    }
}

TEST(feSetEOF, cutsAndFillsUp)
{
    const test::TemporaryFolder folder;
    const std::string path = folder.write("f", "0123456789");
    const ForkCloser fork = openFork(path);
    EXPECT_EQ(feSetEOF(fork.get(), 4), 0);
    EXPECT_EQ(test::readFile(path), "0123");
    EXPECT_EQ(feSetEOF(fork.get(), 6), 0);
    EXPECT_EQ(test::readFile(path), std::string("0123\0\0", 6));
    EXPECT_EQ(feSetEOF(fork.get(), 0), 0);
    EXPECT_EQ(test::readFile(path), "");
    EXPECT_EQ(feSetEOF(fork.get(), -1), kErrBadArgument);

    const FSRef ref = {path};
    ForkRef readOnly = 0;
    ASSERT_EQ(feOpenExistingFileRef(&ref, &readOnly, 0, 1), 0);
    const ForkCloser closer(readOnly);
    EXPECT_EQ(feSetEOF(readOnly, 1), kErrBadArgument);
}

TEST(feReadFromFile, refusesWhatIsNotOpen)
{
    const ForkRef closed = closedFork();
    for (const ForkRef fork : {closed, -1, 0, 1, 2}) {
        SCOPED_TRACE(fork);
        char buffer[1] = {};
        std::int64_t size = -5;
        EXPECT_EQ(feReadFromFile(fork, 0, 1, buffer), kErrNotOpen);
        EXPECT_EQ(feWriteToFile(fork, 0, 1, buffer), kErrNotOpen);
        EXPECT_EQ(feWriteToFile(fork, 0, 0, buffer), kErrNotOpen) << "though nothing is written";
        EXPECT_EQ(feAppendToFile(fork, 1, buffer), kErrNotOpen);
        EXPECT_EQ(feSetEOF(fork, 0), kErrNotOpen);
        EXPECT_EQ(feGetEOF(fork, &size), kErrNotOpen);
        EXPECT_EQ(size, 0);
    }
}

TEST(feCopyFileData, copiesRanges)
{
    const test::TemporaryFolder folder;
    const struct {
        const char* name;
        std::int64_t sourceOffset;
        std::uint64_t count;
        std::int64_t destOffset;
        std::int32_t status;
        std::string expected;
    } rows[] = {
        {"nothing", 0, 0, 0, 0, "....."},
        {"nothing beyond the end", 100, 0, 100, 0, "....."},
        {"all", 0, 10, 0, 0, "0123456789"},
        {"middle", 2, 3, 1, 0, ".234."},
        {"after the end", 9, 1, 5, 0, ".....9"},
        {"one past the end", 1, 10, 0, kErrShortTransfer, "....."},
        {"beyond the end", 50, 1, 0, kErrShortTransfer, "....."},
        {"before the source's start", -1, 1, 0, kErrBadArgument, "....."},
        {"before the destination's start", 0, 1, -1, kErrBadArgument, "....."},
        {"more than there can be", 0, std::numeric_limits<std::uint64_t>::max(), 0,
         kErrShortTransfer, "....."},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const ForkCloser source = openFork(folder.write("source", "0123456789"));
        const std::string path = folder.write("dest", ".....");
        const ForkCloser dest = openFork(path);
        EXPECT_EQ(
            feCopyFileData(source.get(), row.sourceOffset, row.count, dest.get(), row.destOffset),
            row.status);
        EXPECT_EQ(test::readFile(path), row.expected);
    }
}

TEST(feCopyFileData, copiesInPassesOf16MiB)
{
    constexpr std::size_t kPass = 0x1000000;
    const test::TemporaryFolder folder;
    std::string content(kPass + 3, '\0');
    for (std::size_t i = 0; i < content.size(); i++) content[i] = static_cast<char>(i % 251);
    const ForkCloser source = openFork(folder.write("source", content));
    const std::string path = folder.write("dest", "");
    const ForkCloser dest = openFork(path);
    EXPECT_EQ(feCopyFileData(source.get(), 0, content.size(), dest.get(), 0), 0);
    EXPECT_TRUE(test::readFile(path) == content);

    // The second pass is one byte short, so only the first is written.
    EXPECT_EQ(feSetEOF(dest.get(), 0), 0);
    EXPECT_EQ(feCopyFileData(source.get(), 0, content.size() + 1, dest.get(), 0),
              kErrShortTransfer);
    EXPECT_TRUE(test::readFile(path) == content.substr(0, kPass));
}

TEST(feCopyFileData, givesMinus108WhenMemoryRunsOut)
{
    const test::TemporaryFolder folder;
    const ForkCloser source = openFork(folder.write("source", "x"));
    const std::string path = folder.write("dest", "");
    const ForkCloser dest = openFork(path);
    baseFailAllocation(1);
    EXPECT_EQ(feCopyFileData(source.get(), 0, 1, dest.get(), 0), kErrNoMemory);
    baseFailAllocation(0);
    EXPECT_EQ(test::readFile(path), "");
}

TEST(feCopyFileData, passesOnTheStatusOfEitherFile)
{
    const test::TemporaryFolder folder;
    const ForkCloser fork = openFork(folder.write("f", "x"));
    EXPECT_EQ(feCopyFileData(closedFork(), 0, 1, fork.get(), 0), kErrNotOpen);
    EXPECT_EQ(feCopyFileData(fork.get(), 0, 1, 0, 0), kErrNotOpen);
}

TEST(ForkCloser, closesAtTheEndOfTheScope)
{
    const test::TemporaryFolder folder;
    ForkRef number = 0;
    {
        ForkCloser fork = openFork(folder.write("f", ""));
        number = fork.get();
        const ForkCloser taken(fork.take());
        EXPECT_FALSE(fork);
        EXPECT_NE(fcntl(number, F_GETFD), -1);
    }
    EXPECT_EQ(fcntl(number, F_GETFD), -1);
}
