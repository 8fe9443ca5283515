#include "pictures/byte_source.h"

#include "tests/support/byte_views.h"
#include "tests/support/environment.h"

#include <gtest/gtest.h>

#include <string>

#include <fcntl.h>
#include <unistd.h>

using namespace pinorama;

using test::textOf;
using test::viewOf;

namespace {
// A file whose byte at offset n is n modulo 251, so that every place can be told.
std::string patternOf(std::size_t size)
{
    std::string bytes(size, '\0');
    for (std::size_t index = 0; index < size; ++index) {
        bytes[index] = static_cast<char>(index % 251);
    }
    return bytes;
}

class OpenFile {
public:
    explicit OpenFile(const std::string& path) : descriptor(open(path.c_str(), O_RDWR | O_CLOEXEC))
    {
    }
    ~OpenFile() { close(descriptor); }
    const int descriptor;
};
}  // namespace

TEST(ByteSource_view, isWholeOrEmpty)
{
    const std::string bytes = "0123456789";
    MemoryByteSource source(viewOf(bytes));
    const struct {
        const char* name;
        std::uint64_t offset;
        std::size_t length;
        const char* expected;
    } rows[] = {
        {"start", 0, 3, "012"},
        {"all", 0, 10, "0123456789"},
        {"end", 8, 2, "89"},
        {"nothing at the end", 10, 0, ""},
        {"one byte too many", 8, 3, ""},
        {"after the end", 11, 0, ""},
        {"an offset whose end would wrap around", UINT64_MAX, 2, ""},
        {"a length that would wrap around", 2, SIZE_MAX, ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(textOf(source.view(row.offset, row.length)), row.expected);
    }
}

TEST(ByteSource_view, hasAGreatestLengthInMemoryToo)
{
    const std::string bytes = patternOf(kMaxViewLength + 1);
    MemoryByteSource source(viewOf(bytes));
    EXPECT_EQ(source.view(1, kMaxViewLength).size(), kMaxViewLength);
    EXPECT_TRUE(source.view(0, kMaxViewLength + 1).empty());
}

TEST(FileByteSource, takesOneReadForTheFirst64KiB)
{
    const test::TemporaryFolder folder;
    const std::string bytes = patternOf(100000);
    const OpenFile file(folder.write("a", bytes));
    FileByteSource source(file.descriptor, bytes.size());
    EXPECT_EQ(source.readCount(), 0);
    EXPECT_EQ(textOf(source.view(0, 2)), bytes.substr(0, 2));
    EXPECT_EQ(textOf(source.view(65000, 536)), bytes.substr(65000, 536));
    EXPECT_EQ(source.readCount(), 1);
    EXPECT_EQ(textOf(source.view(65000, 537)), bytes.substr(65000, 537));
    EXPECT_EQ(source.readCount(), 2);
    // What stands near it comes from the same window, before it as well as after it.
    EXPECT_EQ(textOf(source.view(64000, 1000)), bytes.substr(64000, 1000));
    EXPECT_EQ(textOf(source.view(70000, 1000)), bytes.substr(70000, 1000));
    EXPECT_EQ(source.readCount(), 2);
}

TEST(FileByteSource, readsASmallFileWithoutAskingForItsEnd)
{
    const test::TemporaryFolder folder;
    const OpenFile file(folder.write("a", "0123456789"));
    FileByteSource source(file.descriptor, 10);
    EXPECT_EQ(textOf(source.view(5, 5)), "56789");
    EXPECT_EQ(source.readCount(), 1);
}

TEST(FileByteSource, answersEveryPlaceAndLength)
{
    const test::TemporaryFolder folder;
    const std::string bytes = patternOf(300001);
    const OpenFile file(folder.write("a", bytes));
    FileByteSource source(file.descriptor, bytes.size());
    for (const std::size_t length : {1, 12, 4096, 16384, 65535, 65536}) {
        for (std::size_t offset = 0; offset + length <= bytes.size(); offset += 29989) {
            SCOPED_TRACE(offset);
            SCOPED_TRACE(length);
            ASSERT_EQ(textOf(source.view(offset, length)), bytes.substr(offset, length));
        }
        const std::size_t last = bytes.size() - length;
        ASSERT_EQ(textOf(source.view(last, length)), bytes.substr(last));
        EXPECT_TRUE(source.view(last + 1, length).empty());
    }
    EXPECT_TRUE(source.view(0, kMaxViewLength + 1).empty());
}

TEST(FileByteSource, aFileCutShortMeanwhileGivesEmptyViews)
{
    const test::TemporaryFolder folder;
    const OpenFile file(folder.write("a", patternOf(200000)));
    FileByteSource source(file.descriptor, 200000);
    ASSERT_EQ(ftruncate(file.descriptor, 1000), 0);
    EXPECT_EQ(source.view(0, 1000).size(), 1000u);
    EXPECT_TRUE(source.view(0, 1001).empty());
    EXPECT_TRUE(source.view(150000, 1).empty());
    EXPECT_EQ(source.view(999, 1).size(), 1u);  // what was read stays
}

TEST(FileByteSource, stopsReadingAfterItsLimit)
{
    const test::TemporaryFolder folder;
    const OpenFile file(folder.write("a", ""));
    constexpr std::uint64_t kSize = std::uint64_t{1} << 40;
    ASSERT_EQ(ftruncate(file.descriptor, kSize), 0);  // all holes, takes no room
    FileByteSource source(file.descriptor, kSize);
    int answered = 0;
    for (std::uint64_t offset = 0; offset < 100000000; offset += 100000) {
        if (!source.view(offset, 1).empty()) ++answered;
    }
    EXPECT_EQ(answered, FileByteSource::kMaxReads);
    EXPECT_EQ(source.readCount(), FileByteSource::kMaxReads);
}

TEST(FileByteSource, whatCannotBeReadGivesEmptyViews)
{
    FileByteSource source(-1, 1000);
    EXPECT_TRUE(source.view(0, 1).empty());
    EXPECT_TRUE(source.view(500, 1).empty());
}

TEST(ByteBlock, partsNeverLeaveTheirBlock)
{
    const std::string bytes = "0123456789";
    MemoryByteSource source(viewOf(bytes));
    const ByteBlock block = ByteBlock(source).part(2, 6);
    EXPECT_EQ(textOf(block.view(0, 6)), "234567");
    EXPECT_TRUE(block.view(0, 7).empty());
    EXPECT_TRUE(block.view(6, 1).empty());
    EXPECT_TRUE(block.view(UINT64_MAX, 1).empty());

    EXPECT_EQ(block.part(4, 100).length(), 2u);
    EXPECT_EQ(textOf(block.part(4, UINT64_MAX).view(0, 2)), "67");
    EXPECT_EQ(textOf(block.from(5).view(0, 1)), "7");
    EXPECT_TRUE(block.from(6).isEmpty());
    EXPECT_TRUE(block.part(UINT64_MAX, 1).isEmpty());
    EXPECT_TRUE(ByteBlock().view(0, 0).empty());
    EXPECT_TRUE(ByteBlock().view(0, 1).empty());
}

TEST(ByteBlock, beginsWithComparesAllBytes)
{
    const std::string bytes = "Exif";
    MemoryByteSource source(viewOf(bytes));
    const ByteBlock block(source);
    EXPECT_TRUE(block.beginsWith(viewOf("Exif")));
    EXPECT_TRUE(block.beginsWith(viewOf("E")));
    EXPECT_FALSE(block.beginsWith(viewOf("EXif")));
    EXPECT_FALSE(block.beginsWith(viewOf("Exif2")));
    EXPECT_FALSE(ByteBlock().beginsWith(viewOf("E")));
}
