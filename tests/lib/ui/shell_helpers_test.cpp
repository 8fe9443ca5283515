#include "lib/ui/shell_helpers.h"

#include "lib/files/fork_io.h"
#include "tests/support/environment.h"
#include "tests/support/permissions.h"
#include "tests/support/texts.h"

#include <gtest/gtest.h>

#include <string>

#include <sys/stat.h>

using namespace pinorama;

TEST(cuMakeFinderCommentScript, joinsItsLinesWithBlanksAroundCarriageReturns)
{
    EXPECT_EQ(test::takeUTF8(cuMakeFinderCommentScript(test::text("/a/b.jpg").get(),
                                                       test::text("nice").get())),
              "tell application \"Finder\" \r set myFile to POSIX file \"/a/b.jpg\" as alias \r "
              "set current_com to comment of myfile \r if current_com is \"\" then \r set comment "
              "of myfile to \"nice\" \r else \r set comment of myfile to (current_com & return & "
              "\"nice\") as string \r end if \r  end tell");
}

TEST(cuMakeFinderCommentScript, insertsQuotesAndBackslashesRaw)
{
    const auto script = test::takeUTF8(
        cuMakeFinderCommentScript(test::text("/a\"b\\c").get(), test::text("\"%@\\").get()));
    ASSERT_TRUE(script);
    EXPECT_NE(script->find("POSIX file \"/a\"b\\c\" as"), std::string::npos);
    EXPECT_NE(script->find("myfile to \"\"%@\\\" \r else"), std::string::npos);
    EXPECT_NE(script->find("return & \"\"%@\\\") as"), std::string::npos);
}

TEST(cuMakeFinderCommentScript, nullStandsAsAWord)
{
    const auto script = test::takeUTF8(cuMakeFinderCommentScript(nullptr, nullptr));
    ASSERT_TRUE(script);
    EXPECT_NE(script->find("POSIX file \"(null)\" as"), std::string::npos);
}

TEST(cuCreateAndOpenTextFile, makesAnEmptyFileAndOpensItForReadingAndWriting)
{
    const test::TemporaryFolder folder;
    const std::string path = folder.file("\u00e4.txt");
    ForkRef fork = 0;
    ASSERT_EQ(cuCreateAndOpenTextFile(test::text(path).get(), &fork), 0);
    const ForkCloser closer(fork);
    EXPECT_GT(fork, 2);
    EXPECT_EQ(feWriteToFile(fork, 0, 4, "text"), 0);
    char first = 0;
    EXPECT_EQ(feReadFromFile(fork, 0, 1, &first), 0);
    EXPECT_EQ(test::readFile(path), "text");
}

TEST(cuCreateAndOpenTextFile, emptiesAnExistingFile)
{
    const test::TemporaryFolder folder;
    const std::string path = folder.write("a.txt", "a long text that goes away");
    ForkRef fork = 0;
    ASSERT_EQ(cuCreateAndOpenTextFile(test::text(path).get(), &fork), 0);
    EXPECT_EQ(feCloseFork(fork), 0);
    EXPECT_EQ(test::readFile(path), "");
}

TEST(cuCreateAndOpenTextFile, everyFailureToMakeTheFileIsMinus68)
{
    const test::TemporaryFolder folder;
    const std::string file = folder.write("file", "kept");
    const struct {
        const char* name;
        std::string path;
    } rows[] = {
        {"no such folder", folder.file("missing/a.txt")},
        {"a file as folder", file + "/a.txt"},
        {"a folder", folder.path()},
        {"empty path", ""},
        {"name too long", folder.file(std::string(256, 'n'))},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        ForkRef fork = 77;
        EXPECT_EQ(cuCreateAndOpenTextFile(test::text(row.path).get(), &fork), -68);
        EXPECT_EQ(fork, 0);
    }
    ForkRef fork = 77;
    EXPECT_EQ(cuCreateAndOpenTextFile(nullptr, &fork), -68);
    EXPECT_EQ(test::readFile(file), "kept");
}

TEST(cuCreateAndOpenTextFile, missingPermissionIsMinus68)
{
    const test::TemporaryFolder folder;
    ASSERT_EQ(chmod(folder.path().c_str(), 0555), 0);
    const test::WithoutPrivileges nobody;
    ForkRef fork = 77;
    EXPECT_EQ(cuCreateAndOpenTextFile(test::text(folder.file("a")).get(), &fork), -68);
    EXPECT_EQ(fork, 0);
}
