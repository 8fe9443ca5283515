#include "lib/containers/array_files.h"

#include "base/status.h"
#include "lib/containers/flex_index.h"
#include "lib/files/fork_io.h"
#include "tests/lib/containers/containers_under_test.h"
#include "tests/support/environment.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include <fcntl.h>

using namespace pinorama;

using test::FlexItem;

namespace {
// A file that is open for reading and writing.
struct OpenFile {
    explicit OpenFile(std::string_view content, int flags = O_RDWR)
        : path(folder.write("array", content)), fork(openDescriptor(path.c_str(), flags))
    {
    }
    std::string content() const { return test::readFile(path); }

    test::TemporaryFolder folder;
    std::string path;
    ForkCloser fork;
};

template <typename T>
std::string bytesOf(std::initializer_list<T> values)
{
    return std::string(reinterpret_cast<const char*>(values.begin()), values.size() * sizeof(T));
}

// The bytes of a header in the order that is not this machine's.
std::string foreignHeader(std::uint32_t id, std::uint32_t size, std::uint32_t type)
{
    return test::headerBytes(__builtin_bswap32(id), __builtin_bswap32(size),
                             __builtin_bswap32(type));
}
}  // namespace

TEST(memAppendFileContentsMMIO, writesTheItemsInUseAfterTheEnd)
{
    const OpenFile file("before");
    const test::ArrayOf<std::uint32_t> array({1, 2, 3});
    EXPECT_EQ(memAppendFileContentsMMIO(file.fork.get(), &array), 0);
    EXPECT_EQ(file.content(), "before" + bytesOf<std::uint32_t>({1, 2, 3}));

    test::Array roomy(4, 40);
    const std::uint32_t item = 9;
    ASSERT_EQ(memAppendItem(&roomy, &item), 0);
    EXPECT_EQ(memAppendFileContentsMMIO(file.fork.get(), &roomy), 0);
    EXPECT_EQ(file.content().size(), 6u + 12 + 4) << "not the room after the items";

    const test::Array empty;
    EXPECT_EQ(memAppendFileContentsMMIO(file.fork.get(), &empty), 0);
    EXPECT_EQ(file.content().size(), 6u + 12 + 4);
    EXPECT_EQ(memAppendFileContentsMMIO(0, &array), kErrNotOpen);
}

TEST(memWriteToFileContentsMMIO, writesAtAnOffset)
{
    const OpenFile file("0123456789");
    const test::ArrayOf<std::uint32_t> array({0x61616161});
    EXPECT_EQ(memWriteToFileContentsMMIO(file.fork.get(), &array, 2), 0);
    EXPECT_EQ(file.content(), "01aaaa6789");
    EXPECT_EQ(memWriteToFileContentsMMIO(file.fork.get(), &array, 12), 0);
    EXPECT_EQ(file.content(), std::string("01aaaa6789\0\0aaaa", 16));
    EXPECT_EQ(memWriteToFileContentsMMIO(file.fork.get(), &array, -1), kErrBadArgument);
    EXPECT_EQ(memWriteToFileContentsMMIO(-1, &array, 0), kErrNotOpen);
}

TEST(memGetFileContentsMMIO, readsTheBytesOfTheFile)
{
    const OpenFile file("xx" + bytesOf<std::uint32_t>({5, 6, 7}));
    const std::int64_t end = 14;
    const struct {
        const char* name;
        std::int64_t offset;
        std::uint32_t count, size;
        std::int16_t status;
    } rows[] = {
        {"all", 2, 3, 4, 0},
        {"some", 2, 2, 4, 0},
        {"up to the end", 6, 2, 4, 0},
        {"one byte past the end", 7, 2, 4, -1},
        {"one item past the end", 2, 4, 4, -1},
        {"nothing at the end", end, 0, 4, 0},
        {"nothing beyond the end", end + 1, 0, 4, -1},
        {"items of no size", 0, 3, 0, 0},
        {"far beyond the end", INT64_MAX, 1, 4, -1},
        {"4 GiB and 4 bytes", 0, 0x40000001, 4, -1},
        {"largest product", 0, UINT32_MAX, UINT32_MAX, -1},
        {"before the start", -1, 1, 4, kErrBadArgument},
        {"far before the start", INT64_MIN, 1, 4, kErrBadArgument},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        DynArray array = {1, 2, 3, nullptr};
        EXPECT_EQ(memGetFileContentsMMIO(file.fork.get(), row.offset, row.count, row.size, &array),
                  row.status);
        EXPECT_EQ(file.content().size(), 14u);
        if (row.status == -1) {
            EXPECT_EQ(array.itemSize, 1u) << "untouched";
            EXPECT_EQ(array.itemCount, 3u) << "untouched";
            continue;
        }
        EXPECT_EQ(array.itemSize, row.size);
        EXPECT_EQ(array.itemCount, row.status == 0 ? row.count : 0);
        EXPECT_EQ(array.allocatedAmount, row.status == 0 ? row.count : 0) << "exactly the room";
        if (row.status == 0 && row.size != 0) {
            EXPECT_TRUE(
                memSameData(&array, row.count * row.size, file.content().data() + row.offset));
        }
        memFreeDynArray(&array);
        EXPECT_EQ(array.data, nullptr);
    }
}

TEST(memGetFileContentsMMIO, ignoresTheStatusOfTheLength)
{
    // Without a length every range ends beyond the end, and nothing at the start is read and fails.
    DynArray array = {1, 2, 3, nullptr};
    EXPECT_EQ(memGetFileContentsMMIO(0, 0, 1, 4, &array), -1);
    EXPECT_EQ(array.itemCount, 3u);
    EXPECT_EQ(memGetFileContentsMMIO(0, 0, 0, 4, &array), kErrNotOpen);
}

TEST(memGetFileContentsMMIO, freesTheBlockIfItCannotBeRead)
{
    const OpenFile file(std::string(16, 'x'), O_WRONLY);
    test::Array array;
    EXPECT_EQ(memGetFileContentsMMIO(file.fork.get(), 0, 4, 4, &array), kErrNotOpen);
    EXPECT_EQ(array.data, nullptr);
    EXPECT_EQ(array.allocatedAmount, 0u);
    EXPECT_EQ(array.itemCount, 0u);
}

TEST(memGetFileContentsMMIO, gives22001WhenMemoryRunsOut)
{
    const OpenFile file(std::string(16, 'x'));
    test::Array array;
    const test::FailingAllocation failing(1);
    EXPECT_EQ(memGetFileContentsMMIO(file.fork.get(), 0, 4, 4, &array), kMemErrNoMemory);
    EXPECT_TRUE(failing.hasHappened());
    EXPECT_EQ(array.data, nullptr);
    EXPECT_EQ(array.itemCount, 0u);
}

TEST(memAppendFlexArrayToFileMMIO, writesTheUsedBytesAfterTheEnd)
{
    const OpenFile file("before");
    const test::Flex flex({{1, 2, "data"}, {3, 4, ""}});
    const std::string bytes = test::headerBytes(1, 4, 2) + "data" + test::headerBytes(3, 0, 4);
    EXPECT_EQ(memAppendFlexArrayToFileMMIO(file.fork.get(), &flex), 0);
    EXPECT_EQ(file.content(), "before" + bytes);
    const test::Flex empty;
    EXPECT_EQ(memAppendFlexArrayToFileMMIO(file.fork.get(), &empty), 0);
    EXPECT_EQ(file.content(), "before" + bytes);
    EXPECT_EQ(memAppendFlexArrayToFileMMIO(2, &flex), kErrNotOpen);
}

TEST(memWriteFlexArrayToFileMMIO, writesAtAnOffset)
{
    const OpenFile file("0123456789");
    const test::Flex flex({{1, 2, ""}});
    EXPECT_EQ(memWriteFlexArrayToFileMMIO(file.fork.get(), &flex, 4), 0);
    EXPECT_EQ(file.content(), "0123" + test::headerBytes(1, 0, 2));
    EXPECT_EQ(memWriteFlexArrayToFileMMIO(file.fork.get(), &flex, -1), kErrBadArgument);
}

TEST(memGetFileContentsFlexMMIO, readsTheBytesOfTheFile)
{
    const std::string bytes = test::headerBytes(1, 4, 2) + "data";
    const OpenFile file("xx" + bytes);
    const struct {
        const char* name;
        std::int64_t offset;
        std::uint32_t count;
        std::int16_t status;
    } rows[] = {
        {"all", 2, 16, 0},
        {"one byte past the end", 2, 17, -1},
        {"nothing at the end", 18, 0, 0},
        {"nothing beyond the end", 19, 0, -1},
        {"far beyond the end", INT64_MAX, UINT32_MAX, -1},
        {"before the start", -1, 1, kErrBadArgument},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        FlexDynArray flex = {1, 2, nullptr, {}};
        EXPECT_EQ(memGetFileContentsFlexMMIO(file.fork.get(), row.offset, row.count, &flex),
                  row.status);
        if (row.status == -1) {
            EXPECT_EQ(flex.usedBytes, 2u) << "untouched";
            continue;
        }
        EXPECT_EQ(flex.usedBytes, row.status == 0 ? row.count : 0);
        EXPECT_EQ(flex.allocatedBytes, row.status == 0 ? row.count : 0);
        EXPECT_FALSE(flex.index.data);
        if (row.count == 16) {
            EXPECT_THAT(test::itemsOf(flex), testing::ElementsAre(FlexItem{1, 2, "data"}));
        }
        memFreeFlexDynArray(&flex);
    }
}

TEST(memGetFileContentsFlexMMIO, stopsWithoutALength)
{
    FlexDynArray flex = {1, 2, nullptr, {}};
    EXPECT_EQ(memGetFileContentsFlexMMIO(0, 0, 1, &flex), kErrNotOpen);
    EXPECT_EQ(flex.usedBytes, 2u) << "untouched";
}

TEST(memGetFileContentsFlexMMIO, freesTheBlockIfItCannotBeRead)
{
    const OpenFile file(std::string(16, 'x'), O_WRONLY);
    test::Flex flex;
    EXPECT_EQ(memGetFileContentsFlexMMIO(file.fork.get(), 0, 16, &flex), kErrNotOpen);
    EXPECT_EQ(flex.data, nullptr);
    EXPECT_EQ(flex.allocatedBytes, 0u);

    const test::FailingAllocation failing(1);
    const OpenFile readable(std::string(16, 'x'));
    EXPECT_EQ(memGetFileContentsFlexMMIO(readable.fork.get(), 0, 16, &flex), kMemErrNoMemory);
    EXPECT_TRUE(failing.hasHappened());
    EXPECT_EQ(flex.data, nullptr);
}

TEST(memEndianConvertFlexDynArray, swapsTheNumbersOfEveryHeader)
{
    const std::string native =
        test::headerBytes(1, 4, 0x41424344) + "data" + test::headerBytes(0x01020304, 0, 9);
    const std::string foreign =
        foreignHeader(1, 4, 0x41424344) + "data" + foreignHeader(0x01020304, 0, 9);
    test::Flex flex{std::string_view(native)};
    EXPECT_EQ(memEndianConvertFlexDynArray(&flex, 1), 0);
    EXPECT_EQ(test::usedBytesOf(flex), foreign);
    EXPECT_EQ(memEndianConvertFlexDynArray(&flex, 0), 0);
    EXPECT_EQ(test::usedBytesOf(flex), native) << "and back";

    for (const int direction : {2, 255}) {  // everything but 1 is the way back
        test::Flex read{std::string_view(foreign)};
        EXPECT_EQ(memEndianConvertFlexDynArray(&read, static_cast<std::uint8_t>(direction)), 0);
        EXPECT_EQ(test::usedBytesOf(read), native);
    }
}

TEST(memEndianConvertFlexDynArray, stopsAtAHeaderWhoseDataRunTooFar)
{
    const struct {
        const char* name;
        std::uint32_t size;
        std::int16_t status;
    } rows[] = {
        // The second item's data begins after 12 + 12 bytes at the end of the used bytes.
        {"fits", 0, 0},
        {"runs over by 12", 12, 0},
        {"runs over by 24", 24, 0},
        {"runs over by one more", 25, kMemErrBadPosition},
        {"as large as can be", UINT32_MAX, kMemErrBadPosition},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        for (const bool isNative : {true, false}) {
            const std::string native =
                test::headerBytes(1, 0, 2) + test::headerBytes(3, row.size, 4);
            const std::string foreign = foreignHeader(1, 0, 2) + foreignHeader(3, row.size, 4);
            test::Flex flex{std::string_view(isNative ? native : foreign)};
            EXPECT_EQ(memEndianConvertFlexDynArray(&flex, isNative ? 1 : 0), row.status);
            const std::string& converted = isNative ? foreign : native;
            const std::string& left = isNative ? native : foreign;
            EXPECT_EQ(test::usedBytesOf(flex),
                      row.status == 0 ? converted : converted.substr(0, 12) + left.substr(12));
        }
    }
}

TEST(memEndianConvertFlexDynArray, leavesTheIndexAlone)
{
    test::Flex flex(std::vector<FlexItem>{{1, 2, "data"}, {3, 4, ""}});
    ASSERT_EQ(memBuildFlexIndex(&flex), 0);
    const std::vector<test::IndexEntry> before = test::indexOf(flex);
    EXPECT_EQ(memEndianConvertFlexDynArray(&flex, 1), 0);
    EXPECT_EQ(test::indexOf(flex), before);
}

TEST(memEndianConvertFlexDynArray, leavesAnIncompleteHeaderAlone)
{
    const std::string tail = "eleven byte";
    test::Flex flex{std::string_view(test::headerBytes(1, 0, 2) + tail)};
    EXPECT_EQ(memEndianConvertFlexDynArray(&flex, 1), 0);
    EXPECT_EQ(test::usedBytesOf(flex), foreignHeader(1, 0, 2) + tail);
    test::Flex empty;
    EXPECT_EQ(memEndianConvertFlexDynArray(&empty, 1), 0);
}
