#include "nearby/folder_block.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
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
const std::string kFive = blockOf({{"c", 3}, {"a", 1}, {"e", 5}, {"b", 2}, {"d", 4}});

// The sizes of these pictures of kFive, one digit each; '-' for one that is not there.
std::string sizesOf(KnownPictures* known, std::string_view names)
{
    std::string sizes;
    for (const char name : names) {
        const auto picture = known->take(std::string_view(&name, 1));
        EXPECT_TRUE(!picture || picture->name == std::string_view(&name, 1));
        sizes += picture ? static_cast<char>('0' + picture->size) : '-';
    }
    return sizes;
}
}  // namespace

TEST(FolderBlockWriter, writesTheDocumentedLayout)
{
    const std::string expected(
        "\2\0\0\0"
        "\5\0"
        "a.jpg"
        "\n\0\0\0\0\0\0\0"
        "\xff\xff\xff\xff\xff\xff\xff\xff"
        "\0\0\0\0\0\x40\x48\xc0"
        "\0\0\0\0\0\x80\x26\x40",
        43);
    EXPECT_EQ(blockOf({{"a.jpg", 10, -1, Position{-48.5, 11.25}}}), expected);
}

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
    for (const char version : {0, 1, 3}) {
        other[0] = version;
        EXPECT_EQ(countIn(other), 0u) << "another version";
    }
    other = kBlock;
    other[5] = '\x7f';  // a name longer than the block
    EXPECT_EQ(countIn(other), 0u);
}

TEST(FolderBlockReader, takesNoPlaceThatIsNotOnTheEarth)
{
    const std::string block = blockOf({{"a", 1, 1, Position{90.5, 0}},
                                       {"b", 1, 1, Position{0, -180.5}},
                                       {"c", 1, 1, Position{90, 180}}});
    FolderBlockReader reader(block);
    for (const bool hasPosition : {false, false, true}) {
        const auto picture = reader.next();
        ASSERT_TRUE(picture);
        EXPECT_EQ(picture->position.has_value(), hasPosition) << picture->name;
    }
}

TEST(KnownPictures, areFoundInAnyOrder)
{
    const struct {
        const char *name, *asked, *sizes;
        bool hasMore;
    } rows[] = {
        {"nothing", "", "", true},
        {"the order of the block", "caebd", "31524", false},
        {"the reverse", "dbeac", "42513", false},
        {"sorted", "abcde", "12345", false},
        {"all but the last", "caeb", "3152", true},
        {"all but the first", "aebd", "1524", true},
        {"one in the middle is gone", "cabd", "3124", true},
        {"two have changed places", "ceabd", "35124", false},
        {"one is new at the beginning", "xcaebd", "-31524", false},
        {"one is new in the middle", "caxebd", "31-524", false},
        {"one is new at the end", "caebdx", "31524-", false},
        {"each only once", "ccaebdd", "3-1524-", false},
        {"only new ones", "xyz", "---", true},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        KnownPictures known(kFive);
        EXPECT_EQ(sizesOf(&known, row.asked), row.sizes);
        EXPECT_EQ(known.hasMore(), row.hasMore);
    }
}

TEST(KnownPictures, areNoneInABlockThatIsEmptyOrMalformed)
{
    for (const char* block : {"", "x", "\2\0", "no block of a folder"}) {
        SCOPED_TRACE(block);
        KnownPictures known(block);
        EXPECT_FALSE(known.hasMore());
        EXPECT_EQ(sizesOf(&known, "ca"), "--");
        EXPECT_FALSE(known.hasMore());
    }
}
