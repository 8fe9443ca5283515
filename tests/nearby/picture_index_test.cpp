#include "nearby/picture_index.h"

#include "tests/support/environment.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

#include <string>
#include <vector>

using namespace pinorama;

namespace {
const std::string kBlock("\2\0\0\0 any bytes \xff", 16);
}  // namespace

TEST(PictureIndex, remembersFolders)
{
    const test::TemporaryFolder folder;
    const std::string path = folder.file("deep/down/index.sqlite");
    EXPECT_EQ(PictureIndex(path).read("/a"), "");
    const std::string strange("/a\xff'; DROP TABLE folders", 24);
    ASSERT_TRUE(PictureIndex::write(
        path, std::vector<PictureIndex::Change>{{"/a", kBlock}, {strange, "b"}, {"/empty", ""}}));
    {
        PictureIndex index(path);
        EXPECT_EQ(index.read("/a"), kBlock);
        EXPECT_EQ(index.read(strange), "b");
        EXPECT_EQ(index.read("/empty"), "");
        EXPECT_EQ(index.read("/a/"), "");
        EXPECT_EQ(index.read("/a"), kBlock);
    }
    ASSERT_TRUE(PictureIndex::write(path, std::vector<PictureIndex::Change>{{"/a", "new"}}));
    EXPECT_EQ(PictureIndex(path).read("/a"), "new");
    EXPECT_EQ(PictureIndex(path).read(strange), "b");
}

TEST(PictureIndex, belongsToTheUserAlone)
{
    const test::TemporaryFolder folder;
    const std::string path = folder.file("cache/index.sqlite");
    ASSERT_TRUE(PictureIndex::write(path, std::vector<PictureIndex::Change>{{"/a", kBlock}}));
    struct stat status {};
    ASSERT_EQ(stat(path.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0600u);
    ASSERT_EQ(stat(folder.file("cache").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0700u);
}

TEST(PictureIndex, isMadeAnewIfItIsDamaged)
{
    const test::TemporaryFolder folder;
    for (const std::string& damage : {std::string("no database at all, but long enough to be one"),
                                      std::string(5000, 'x'), std::string()}) {
        const std::string path = folder.write("index.sqlite", damage);
        EXPECT_EQ(PictureIndex(path).read("/a"), "");
        EXPECT_TRUE(PictureIndex::write(path, std::vector<PictureIndex::Change>{{"/a", kBlock}}));
        EXPECT_EQ(PictureIndex(path).read("/a"), kBlock);
    }
}

TEST(PictureIndex, isMadeAnewIfItHasAnotherLayout)
{
    const test::TemporaryFolder folder;
    const std::string path = folder.file("index.sqlite");
    ASSERT_TRUE(PictureIndex::write(path, std::vector<PictureIndex::Change>{{"/old", kBlock}}));
    std::string bytes = test::readFile(path);
    ASSERT_GT(bytes.size(), 64u);
    ASSERT_EQ(bytes[63], 2) << "the layout: offset 60 of an SQLite file, most significant first";
    for (const char layout : {1, 3}) {
        bytes[63] = layout;
        (void)folder.write("index.sqlite", bytes);
        EXPECT_EQ(PictureIndex(path).read("/old"), "");
        ASSERT_TRUE(PictureIndex::write(path, std::vector<PictureIndex::Change>{{"/a", kBlock}}));
        EXPECT_EQ(PictureIndex(path).read("/a"), kBlock);
        EXPECT_EQ(PictureIndex(path).read("/old"), "");
    }
}

TEST(PictureIndex, cannotBeWrittenWhereNothingCan)
{
    const std::vector<PictureIndex::Change> changes = {{"/a", kBlock}};
    EXPECT_FALSE(PictureIndex::write("", changes));
    EXPECT_FALSE(PictureIndex::write("/proc/nowhere/index.sqlite", changes));
    EXPECT_FALSE(PictureIndex::write("/dev/null/index.sqlite", changes));
}

TEST(defaultIndexPath, isInTheCacheFolder)
{
    const test::TemporaryFolder folder;
    const test::ScopedVariable cache("XDG_CACHE_HOME", folder.path().c_str());
    EXPECT_EQ(defaultIndexPath(), folder.file("pinorama/pictures.sqlite"));
}
