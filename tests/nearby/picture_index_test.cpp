#include "nearby/picture_index.h"

#include "tests/support/environment.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

#include <string>
#include <vector>

using namespace pinorama;

namespace {
std::string blockOf(const std::vector<IndexedPicture>& pictures)
{
    FolderBlockWriter writer;
    for (const IndexedPicture& picture : pictures) writer.add(picture);
    return writer.take();
}

std::size_t countIn(std::string_view block)
{
    FolderBlockReader reader(block);
    std::size_t count = 0;
    while (reader.next()) count++;
    return count;
}

const std::string kBlock = blockOf({{"a.jpg", 10, -1, Position{-48.5, 11.25}},
                                    {"\xff.jpg", 0, 1'700'000'000'123'456'789, std::nullopt}});
}  // namespace

TEST(FolderBlockReader, readsWhatTheWriterWrites)
{
    FolderBlockReader reader(kBlock);
    const auto first = reader.next();
    ASSERT_TRUE(first);
    EXPECT_EQ(first->name, "a.jpg");
    EXPECT_EQ(first->size, 10u);
    EXPECT_EQ(first->modified, -1);
    ASSERT_TRUE(first->position);
    EXPECT_EQ(first->position->latitude, -48.5);
    EXPECT_EQ(first->position->longitude, 11.25);
    const auto second = reader.next();
    ASSERT_TRUE(second);
    EXPECT_EQ(second->name, "\xff.jpg");
    EXPECT_EQ(second->modified, 1'700'000'000'123'456'789);
    EXPECT_FALSE(second->position);
    EXPECT_FALSE(reader.next());
    EXPECT_FALSE(reader.next());
}

TEST(FolderBlockReader, endsAtWhatIsMalformed)
{
    for (std::size_t length = 0; length < kBlock.size(); length++) {
        EXPECT_LT(countIn(std::string_view(kBlock).substr(0, length)), 2u) << length;
    }
    std::string other = kBlock;
    other[0] = 2;
    EXPECT_EQ(countIn(other), 0u) << "another version";
    other = kBlock;
    other[5] = '\x7f';  // a name longer than the block
    EXPECT_EQ(countIn(other), 0u);
}

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
