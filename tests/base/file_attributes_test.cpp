#include "base/file_attributes.h"

#include "tests/support/environment.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <ctime>

using namespace pinorama;

namespace {
// Sets the date of the last change; nanoseconds run upwards also before 1970.
void setModified(const std::string& path, std::time_t seconds, long nanoseconds)
{
    const timespec times[2] = {{seconds, nanoseconds}, {seconds, nanoseconds}};
    ASSERT_EQ(utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
}
}  // namespace

TEST(attributesOf, givesSizeAndKind)
{
    const test::TemporaryFolder folder;
    const std::string file = folder.write("a", "12345");
    const std::string empty = folder.write("b", "");

    EXPECT_TRUE(attributesOf(file)->isRegular);
    EXPECT_EQ(attributesOf(file)->size, 5u);
    EXPECT_TRUE(attributesOf(empty)->isRegular);
    EXPECT_EQ(attributesOf(empty)->size, 0u);
    EXPECT_FALSE(attributesOf(folder.path())->isRegular);
    EXPECT_FALSE(attributesOf("/dev/null")->isRegular);
    EXPECT_EQ(attributesOf(file)->type, static_cast<std::uint32_t>(S_IFREG));
    EXPECT_EQ(attributesOf(folder.path())->type, static_cast<std::uint32_t>(S_IFDIR));
    EXPECT_EQ(attributesOf("/dev/null")->type, static_cast<std::uint32_t>(S_IFCHR));
}

TEST(attributesOf, givesTheSameForAnOpenFile)
{
    const test::TemporaryFolder folder;
    const std::string file = folder.write("a", "12345");
    for (const std::string& path : {file, folder.path()}) {
        const int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC);
        ASSERT_GE(descriptor, 0);
        EXPECT_EQ(attributesOf(descriptor), attributesOf(path));
        close(descriptor);
    }
    EXPECT_EQ(attributesOf(-1), std::nullopt);
}

TEST(attributesOfItself, looksAtALinkAndNotAtItsEnd)
{
    const test::TemporaryFolder folder;
    const std::string file = folder.write("a", "12345");
    const std::string link = folder.file("b");
    ASSERT_EQ(symlink("a", link.c_str()), 0);
    EXPECT_EQ(attributesOfItself(file), attributesOf(file));
    EXPECT_EQ(attributesOfItself(link)->type, static_cast<std::uint32_t>(S_IFLNK));
    EXPECT_FALSE(attributesOfItself(link)->isRegular);
    EXPECT_EQ(attributesOfItself(folder.file("none")), std::nullopt);
    EXPECT_EQ(errno, ENOENT);
    EXPECT_EQ(attributesOfItself(std::string("a\0b", 3)), std::nullopt);
    EXPECT_EQ(errno, ENOENT);
}

TEST(attributesOf, doesNotWaitForAPipe)
{
    const test::TemporaryFolder folder;
    const std::string pipe = folder.file("pipe.jpg");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_FALSE(attributesOf(pipe)->isRegular);
}

TEST(attributesOf, followsLinks)
{
    const test::TemporaryFolder folder;
    const std::string file = folder.write("a", "12345");
    ASSERT_EQ(symlink(file.c_str(), folder.file("link").c_str()), 0);
    ASSERT_EQ(symlink("nowhere", folder.file("dangling").c_str()), 0);

    EXPECT_TRUE(attributesOf(folder.file("link"))->isRegular);
    EXPECT_EQ(attributesOf(folder.file("link"))->size, 5u);
    EXPECT_EQ(attributesOf(folder.file("dangling")), std::nullopt);
}

TEST(attributesOf, roundsDatesDownToWholeSeconds)
{
    const test::TemporaryFolder folder;
    const std::string file = folder.write("a", "");
    setModified(file, 1230143400, 999999999);
    EXPECT_EQ(attributesOf(file)->modified, 1230143400);
    setModified(file, -1, 500000000);
    EXPECT_EQ(attributesOf(file)->modified, -1);
}

TEST(attributesOf, givesTheCreationDateWhereTheFileSystemKeepsIt)
{
    const test::TemporaryFolder folder;
    const std::time_t before = std::time(nullptr) - 1;
    const std::string file = folder.write("a", "");
    setModified(file, 1230143400, 0);
    const auto created = attributesOf(file)->created;
    if (!created) GTEST_SKIP() << "this file system keeps no date of creation";
    EXPECT_GE(*created, before);
    EXPECT_LE(*created, std::time(nullptr) + 1);
}

TEST(attributesOf, isNothingForWhatIsNotThere)
{
    const test::TemporaryFolder folder;
    const std::string file = folder.write("a", "");
    EXPECT_EQ(attributesOf(folder.file("b")), std::nullopt);
    EXPECT_EQ(attributesOf(""), std::nullopt);
    EXPECT_EQ(attributesOf(file + '\0' + "b"), std::nullopt);
    EXPECT_EQ(attributesOf(file + "/b"), std::nullopt);
}
