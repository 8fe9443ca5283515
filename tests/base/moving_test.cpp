#include "base/moving.h"

#include "tests/support/environment.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>

#include <sys/stat.h>
#include <unistd.h>

using namespace pinorama;

namespace fs = std::filesystem;

TEST(moveWithoutReplacing, movesFilesFoldersAndLinks)
{
    const test::TemporaryFolder folder;
    folder.write("file", "x");
    fs::create_directory(folder.file("folder"));
    fs::create_symlink("file", folder.file("link"));
    fs::create_directory(folder.file("to"));
    for (const std::string name : {"link", "folder", "file"}) {
        SCOPED_TRACE(name);
        EXPECT_TRUE(moveWithoutReplacing(folder.file(name), folder.file("to/" + name)));
        EXPECT_FALSE(fs::exists(fs::symlink_status(folder.file(name))));
    }
    EXPECT_TRUE(fs::is_symlink(folder.file("to/link")));
    EXPECT_EQ(test::readFile(folder.file("to/file")), "x");
}

TEST(moveWithoutReplacing, leavesBothAloneWhenTheNameIsTaken)
{
    const test::TemporaryFolder folder;
    folder.write("one", "1");
    folder.write("two", "2");
    EXPECT_FALSE(moveWithoutReplacing(folder.file("one"), folder.file("two")));
    EXPECT_EQ(errno, EEXIST);
    EXPECT_EQ(test::readFile(folder.file("one")), "1");
    EXPECT_EQ(test::readFile(folder.file("two")), "2");
    EXPECT_FALSE(moveWithoutReplacing(folder.file("missing"), folder.file("three")));
    EXPECT_EQ(errno, ENOENT);
}

TEST(moveInSteps, keepsTheRulesWhereTheSystemCannotRefuseToReplace)
{
    const test::TemporaryFolder folder;
    folder.write("file", "x");
    folder.write("taken", "t");
    fs::create_directory(folder.file("folder"));
    fs::create_directory(folder.file("empty"));
    for (const char* name : {"file", "folder"}) {
        for (const char* taken : {"taken", "empty"}) {
            SCOPED_TRACE(std::string(name) + " to " + taken);
            EXPECT_FALSE(moveInSteps(folder.file(name), folder.file(taken)));
            EXPECT_EQ(errno, EEXIST);
        }
        SCOPED_TRACE(name);
        EXPECT_TRUE(moveInSteps(folder.file(name), folder.file("moved")));
        EXPECT_FALSE(fs::exists(folder.file(name)));
        EXPECT_TRUE(moveInSteps(folder.file("moved"), folder.file(name)));
    }
    EXPECT_EQ(test::readFile(folder.file("file")), "x");
    EXPECT_EQ(test::readFile(folder.file("taken")), "t");
    struct stat facts = {};
    ASSERT_EQ(stat(folder.file("file").c_str(), &facts), 0);
    EXPECT_EQ(facts.st_nlink, 1u);
}
