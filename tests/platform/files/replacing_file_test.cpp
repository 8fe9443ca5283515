#include "platform/files/replacing_file.h"

#include "tests/support/environment.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <string>

using platform::ReplacingFile;

namespace {
std::size_t countOfItems(const std::string& folder)
{
    const std::filesystem::directory_iterator items(folder);
    return static_cast<std::size_t>(std::distance(begin(items), end(items)));
}

bool replace(const std::string& path, const std::string& content)
{
    ReplacingFile file;
    return file.begin(path) && file.write(content) && file.finish();
}
}  // namespace

TEST(ReplacingFile, makesAFile)
{
    const test::TemporaryFolder folder;
    const std::string path = folder.file("a.kml");
    EXPECT_TRUE(replace(path, "content"));
    EXPECT_EQ(test::readFile(path), "content");
    EXPECT_EQ(countOfItems(folder.path()), 1u);
}

TEST(ReplacingFile, keepsTheOldContentUntilTheNewOneIsWhole)
{
    const test::TemporaryFolder folder;
    const std::string path = folder.write("a.kml", "a longer old content");
    {
        ReplacingFile file;
        ASSERT_TRUE(file.begin(path));
        ASSERT_TRUE(file.write(std::string(200'000, 'x')));
        EXPECT_EQ(test::readFile(path), "a longer old content");
        ASSERT_TRUE(file.write("y"));
        ASSERT_TRUE(file.finish());
    }
    EXPECT_EQ(test::readFile(path), std::string(200'000, 'x') + "y");
    EXPECT_EQ(countOfItems(folder.path()), 1u);
}

TEST(ReplacingFile, leavesNothingWhenItIsGivenUp)
{
    const test::TemporaryFolder folder;
    const std::string path = folder.write("a.kml", "old");
    {
        ReplacingFile file;
        ASSERT_TRUE(file.begin(path));
        ASSERT_TRUE(file.write(std::string(200'000, 'x')));
        EXPECT_EQ(countOfItems(folder.path()), 2u);
    }
    EXPECT_EQ(test::readFile(path), "old");
    EXPECT_EQ(countOfItems(folder.path()), 1u);
}

TEST(ReplacingFile, replacesWhatALinkLeadsToAndKeepsPermissions)
{
    const test::TemporaryFolder folder;
    const std::string path = folder.write("a.kml", "old");
    ASSERT_EQ(chmod(path.c_str(), 0640), 0);
    ASSERT_EQ(symlink("a.kml", folder.file("link.kml").c_str()), 0);
    EXPECT_TRUE(replace(folder.file("link.kml"), "new"));
    EXPECT_EQ(test::readFile(path), "new");
    EXPECT_TRUE(std::filesystem::is_symlink(folder.file("link.kml")));
    struct stat status;
    ASSERT_EQ(stat(path.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0640u);
}

TEST(ReplacingFile, takesAnotherNameWhenOneIsTaken)
{
    const test::TemporaryFolder folder;
    const std::string path = folder.file("a.kml");
    const std::string taken = folder.write("a.kml." + std::to_string(getpid()) + ".new", "mine");
    EXPECT_TRUE(replace(path, "new"));
    EXPECT_EQ(test::readFile(path), "new");
    EXPECT_EQ(test::readFile(taken), "mine");
}

TEST(ReplacingFile, writesToADeviceDirectly)
{
    EXPECT_TRUE(replace("/dev/null", "new"));
    EXPECT_TRUE(std::filesystem::is_character_file("/dev/null"));
}

TEST(ReplacingFile, tellsWhyItCannotBegin)
{
    const test::TemporaryFolder folder;
    const struct {
        std::string path;
        int error;
    } rows[] = {
        {folder.file("missing/a.kml"), ENOENT},
        {folder.path(), EISDIR},
        {folder.write("file", "") + "/a.kml", ENOTDIR},
        {"", ENOENT},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.path);
        ReplacingFile file;
        errno = 0;
        EXPECT_FALSE(file.begin(row.path));
        EXPECT_EQ(errno, row.error);
    }
}

TEST(ReplacingFile, tellsThatTheDiskIsFull)
{
    ReplacingFile file;
    ASSERT_TRUE(file.begin("/dev/full"));
    EXPECT_TRUE(file.write("a"));
    errno = 0;
    EXPECT_FALSE(file.finish());
    EXPECT_EQ(errno, ENOSPC);
}
