#include "lib/files/fork_io.h"

#include "base/alloc.h"
#include "base/status.h"
#include "lib/files/file_reference.h"
#include "tests/support/environment.h"

#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <string>

#include <fcntl.h>
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
