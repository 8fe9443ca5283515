// Forks of files that are opened and made.

#include "lib/files/fork_io.h"

#include "base/alloc.h"
#include "base/status.h"
#include "lib/files/file_reference.h"
#include "tests/support/environment.h"
#include "tests/support/permissions.h"
#include "tests/support/texts.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace pinorama;

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
