#include "lib/containers/flex_dyn_array.h"

#include "lib/containers/flex_index.h"
#include "tests/lib/containers/containers_under_test.h"

#include <gtest/gtest.h>

using namespace pinorama;

using test::FailingAllocation;
using test::Flex;
using test::indexOf;
using test::itemsOf;
using test::stateOf;
using test::usedBytesOf;
using Items = std::vector<test::FlexItem>;

namespace {
std::int16_t addAtEnd(Flex& flex, std::uint32_t id, std::uint32_t type, std::string_view data)
{
    return memAddFlexDataAtEnd(&flex, id, type, static_cast<std::uint32_t>(data.size()),
                               data.data());
}

std::int16_t change(Flex& flex, std::uint32_t id, std::uint32_t type, std::string_view data)
{
    return memChangeFlexData(&flex, id, type, static_cast<std::uint32_t>(data.size()), data.data());
}
}  // namespace

TEST(memNewFlexDynArray, givesAnEmptyBlockWithoutIndex)
{
    Flex flex;
    flex.usedBytes = 5;
    flex.index = {8, 9, 10, nullptr};
    EXPECT_EQ(memNewFlexDynArray(&flex, 100), 0);
    EXPECT_EQ(memGetFlexAllocatedAmount(&flex), 100u);
    EXPECT_EQ(memGetFlexCount(&flex), 0u);
    EXPECT_EQ(flex.index.itemSize, 0u);
    EXPECT_EQ(flex.index.allocatedAmount, 0u);
    EXPECT_EQ(flex.index.itemCount, 0u);
    EXPECT_TRUE(memValidFlexDynArray(&flex));
    EXPECT_FALSE(memHasFlexIndex(&flex));
}

TEST(memNewFlexDynArray, zeroBytesSucceedAndTheFirstItemGrowsIt)
{
    Flex flex;
    EXPECT_EQ(memNewFlexDynArray(&flex, 0), 0);
    EXPECT_FALSE(memValidFlexDynArray(&flex));
    EXPECT_EQ(addAtEnd(flex, 1, 2, "abc"), 0);
    EXPECT_EQ(flex.allocatedBytes, 30u);
}

TEST(memNewFlexDynArray, failureLeavesNothingAllocated)
{
    FlexDynArray flex{1, 2, nullptr, {}};
    const FailingAllocation failure(1);
    EXPECT_EQ(memNewFlexDynArray(&flex, 100), kMemErrNoMemory);
    EXPECT_EQ(flex.allocatedBytes, 0u);
    EXPECT_EQ(flex.usedBytes, 0u);
    EXPECT_EQ(flex.data, nullptr);
}

TEST(memSetFlexInvalid, zeroesAllFields)
{
    std::uint8_t block[4];
    FlexDynArray flex{4, 4, block, {8, 1, 1, block}};
    memSetFlexInvalid(&flex);
    EXPECT_EQ(flex.allocatedBytes, 0u);
    EXPECT_EQ(flex.usedBytes, 0u);
    EXPECT_EQ(flex.data, nullptr);
    EXPECT_EQ(flex.index.itemSize, 0u);
    EXPECT_EQ(flex.index.allocatedAmount, 0u);
    EXPECT_EQ(flex.index.itemCount, 0u);
    EXPECT_EQ(flex.index.data, nullptr);
}

TEST(memValidFlexDynArray, needsBytesAndABlock)
{
    std::uint8_t block[4];
    const FlexDynArray rows[] = {{0, 0, nullptr, {}}, {4, 0, nullptr, {}}, {0, 4, block, {}}};
    for (const FlexDynArray& row : rows) EXPECT_FALSE(memValidFlexDynArray(&row));
    const FlexDynArray valid{4, 0, block, {}};
    EXPECT_TRUE(memValidFlexDynArray(&valid));
}

TEST(memFreeFlexDynArray, freesBlockAndIndexAndKeepsTheItemSizeOfTheIndex)
{
    Flex flex(Items{{1, 1, "a"}});
    ASSERT_EQ(memBuildFlexIndex(&flex), 0);
    EXPECT_EQ(memFreeFlexDynArray(&flex), 0);
    EXPECT_EQ(flex.allocatedBytes, 0u);
    EXPECT_EQ(flex.usedBytes, 0u);
    EXPECT_EQ(flex.data, nullptr);
    EXPECT_EQ(flex.index.itemSize, 8u);
    EXPECT_EQ(flex.index.allocatedAmount, 0u);
    EXPECT_EQ(flex.index.itemCount, 0u);
    EXPECT_EQ(flex.index.data, nullptr);
}

TEST(memFreeFlexDynArray, freesTheIndexOfAnArrayWithoutBlock)
{
    Flex flex;
    ASSERT_EQ(memBuildFlexIndex(&flex), 0);
    EXPECT_NE(flex.index.data, nullptr);
    EXPECT_EQ(memFreeFlexDynArray(&flex), 0);
    EXPECT_EQ(flex.index.data, nullptr);
}

TEST(m2ResizeFlexDynArray, leavesTheUsedBytesAlone)
{
    Flex flex(Items{{1, 1, "abcdefgh"}});
    EXPECT_EQ(m2ResizeFlexDynArray(&flex, 14), 0);
    EXPECT_EQ(flex.allocatedBytes, 14u);
    EXPECT_EQ(flex.usedBytes, 20u);

    const FlexDynArray before = flex;
    const FailingAllocation failure(1);
    EXPECT_EQ(m2ResizeFlexDynArray(&flex, 50), kMemErrNoMemory);
    EXPECT_EQ(flex.allocatedBytes, 14u);
    EXPECT_EQ(flex.data, before.data);
}

TEST(memShrinkFlexToUsed, givesBackTheFreeBytes)
{
    Flex flex;
    ASSERT_EQ(memNewFlexDynArray(&flex, 1000), 0);
    ASSERT_EQ(addAtEnd(flex, 1, 1, "abc"), 0);
    {
        const auto before = stateOf(flex);
        const FailingAllocation failure(1);
        EXPECT_EQ(memShrinkFlexToUsed(&flex), kMemErrNoMemory);
        EXPECT_TRUE(stateOf(flex) == before);
    }
    EXPECT_EQ(memShrinkFlexToUsed(&flex), 0);
    EXPECT_EQ(flex.allocatedBytes, 15u);
    EXPECT_EQ(itemsOf(flex), (Items{{1, 1, "abc"}}));
    flex.usedBytes = 0;
    EXPECT_EQ(memShrinkFlexToUsed(&flex), 0);
    EXPECT_EQ(flex.allocatedBytes, 0u);
}

TEST(memGetFlexCount, countsBytes)
{
    const Flex flex(Items{{1, 1, "abc"}, {2, 1, ""}});
    EXPECT_EQ(memGetFlexCount(&flex), 27u);
}

TEST(memAddFlexDataAtEnd, appendsWithoutRegardToOrder)
{
    Flex flex;
    EXPECT_EQ(addAtEnd(flex, 7, 1, "seven"), 0);
    EXPECT_EQ(addAtEnd(flex, 3, 2, ""), 0);
    EXPECT_EQ(memAddFlexDataAtEnd(&flex, 7, 1, 0, nullptr), 0);
    EXPECT_EQ(itemsOf(flex), (Items{{7, 1, "seven"}, {3, 2, ""}, {7, 1, ""}}));
}

TEST(memAddFlexDataAtEnd, writesIdSizeAndTypeBeforeTheData)
{
    Flex flex;
    EXPECT_EQ(addAtEnd(flex, 0x01020304, 0x05060708, "ab"), 0);
    EXPECT_EQ(usedBytesOf(flex), test::headerBytes(0x01020304, 2, 0x05060708) + "ab");
}

TEST(memAddFlexDataAtEnd, growsUnlessMoreThanNeededIsFree)
{
    const struct {
        const char* name;
        std::uint32_t allocated, size, expected;
    } rows[] = {
        {"one byte more than needed", 23, 10, 23},
        {"exactly sufficient", 22, 10, 22 + 44},
        {"too small", 21, 10, 21 + 44},
        {"large and exactly sufficient", 100000, 99988, 100000 + 200000},
        {"no data", 12, 0, 12 + 24},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        Flex flex;
        ASSERT_EQ(memNewFlexDynArray(&flex, row.allocated), 0);
        EXPECT_EQ(addAtEnd(flex, 1, 1, std::string(row.size, 'x')), 0);
        EXPECT_EQ(flex.allocatedBytes, row.expected);
        EXPECT_EQ(flex.usedBytes, row.size + 12);
    }
}

TEST(memAddFlexDataAtEnd, growsBy12PercentWhenThatIsMore)
{
    Flex flex;
    ASSERT_EQ(memNewFlexDynArray(&flex, 10099), 0);
    ASSERT_EQ(addAtEnd(flex, 1, 1, std::string(10080, 'x')), 0);
    ASSERT_EQ(flex.allocatedBytes, 10099u);
    EXPECT_EQ(addAtEnd(flex, 2, 1, "y"), 0);
    EXPECT_EQ(flex.allocatedBytes, 10099u + 1211u);
}

TEST(memAddFlexDataAtEnd, theProductOfTheGrowthWrapsIn32Bits)
{
    // 357913942 * 12 is 8 in 32 bits, so that 12 % of this block are 0 and the item decides. The
    // block is smaller than the record says until it grows, to spare the test a copy of 341 MiB.
    Flex flex(Items{{1, 1, "abc"}});
    flex.allocatedBytes = 357913942;
    flex.usedBytes = 357913942 - 12;
    if (addAtEnd(flex, 1, 1, "") == kMemErrNoMemory) GTEST_SKIP() << "no 341 MiB of memory";
    EXPECT_EQ(flex.allocatedBytes, 357913942u + 24u);
}

TEST(memAddFlexDataAtEnd, sizesBeyond32BitsCountAsOutOfMemory)
{
    Flex flex(Items{{1, 1, "abc"}});
    const auto before = stateOf(flex);
    EXPECT_EQ(memAddFlexDataAtEnd(&flex, 2, 1, UINT32_MAX, "x"), kMemErrNoMemory);
    EXPECT_EQ(memAddFlexDataAtEnd(&flex, 2, 1, 0x80000000, "x"), kMemErrNoMemory);
    EXPECT_TRUE(stateOf(flex) == before);
}

TEST(memAddFlexDataAtEnd, failureLeavesTheArray)
{
    Flex flex(Items{{1, 1, "abc"}});
    const auto before = stateOf(flex);
    const FailingAllocation failure(1);
    EXPECT_EQ(addAtEnd(flex, 2, 1, "def"), kMemErrNoMemory);
    EXPECT_TRUE(stateOf(flex) == before);
}

TEST(memAddFlexDataAtEnd, dataMayLieInTheBlockThatMoves)
{
    Flex flex(Items{{1, 1, std::string(100, 'x')}});
    Items expected = itemsOf(flex);
    for (std::uint32_t id = 2; id < 500; ++id) {
        ASSERT_EQ(memAddFlexDataAtEnd(&flex, id, 1, 100, flex.data + 12), 0);
        expected.push_back({id, 1, std::string(100, 'x')});
    }
    EXPECT_EQ(itemsOf(flex), expected);
}

TEST(memAddFlexDataAtEnd, doesNotRebuildTheIndex)
{
    Flex flex(Items{{1, 1, "abc"}});
    ASSERT_EQ(memBuildFlexIndex(&flex), 0);
    EXPECT_EQ(addAtEnd(flex, 2, 1, "def"), 0);
    EXPECT_EQ(indexOf(flex), (std::vector<test::IndexEntry>{{1, 0}}));
}

TEST(memChangeFlexData, insertsInIdOrderAndReplaces)
{
    const Items start{{3, 1, "three"}, {3, 2, "more"}, {7, 1, "seven"}};
    const struct {
        const char* name;
        std::uint32_t id, type;
        const char* data;
        Items expected;
    } rows[] = {
        {"between", 5, 1, "five", {start[0], start[1], {5, 1, "five"}, start[2]}},
        {"in front", 1, 9, "one", {{1, 9, "one"}, start[0], start[1], start[2]}},
        {"after", 8, 1, "eight", {start[0], start[1], start[2], {8, 1, "eight"}}},
        {"new type goes after its ID", 3, 0, "x", {start[0], start[1], {3, 0, "x"}, start[2]}},
        {"new type of the last ID", 7, 0, "x", {start[0], start[1], start[2], {7, 0, "x"}}},
        {"same size", 3, 2, "less", {start[0], {3, 2, "less"}, start[2]}},
        {"longer", 3, 1, "three times", {{3, 1, "three times"}, start[1], start[2]}},
        {"shorter", 3, 1, "3", {{3, 1, "3"}, start[1], start[2]}},
        {"nothing left", 3, 2, "", {start[0], {3, 2, ""}, start[2]}},
        {"last item longer", 7, 1, "seventy", {start[0], start[1], {7, 1, "seventy"}}},
        {"largest ID", UINT32_MAX, 1, "m", {start[0], start[1], start[2], {UINT32_MAX, 1, "m"}}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        Flex flex(start);
        EXPECT_EQ(change(flex, row.id, row.type, row.data), 0);
        EXPECT_EQ(itemsOf(flex), row.expected);
    }
}

TEST(memChangeFlexData, startsAnArrayOfZeros)
{
    Flex flex;
    EXPECT_EQ(change(flex, 5, 1, "five"), 0);
    EXPECT_EQ(itemsOf(flex), (Items{{5, 1, "five"}}));
    EXPECT_EQ(flex.allocatedBytes, 16u + 4096u);
}

TEST(memChangeFlexData, growsByWhatIsAddedPlus4096)
{
    const struct {
        const char* name;
        std::uint32_t free, id;
        const char* data;
        std::uint32_t grownBy;
    } rows[] = {
        {"insert, exactly sufficient", 16, 2, "four", 0},
        {"insert, one byte short", 15, 2, "four", 16 + 4096},
        {"append, exactly sufficient", 16, 9, "four", 0},
        {"append, one byte short", 15, 9, "four", 16 + 4096},
        {"found, exactly sufficient", 3, 1, "abcdef", 0},
        {"found, one byte short", 2, 1, "abcdef", 3 + 4096},
        {"found, same size", 0, 1, "def", 0},
        {"found, shorter", 0, 1, "d", 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        Flex flex(Items{{1, 1, "abc"}, {5, 1, "five"}});
        const std::uint32_t allocated = flex.usedBytes + row.free;
        ASSERT_EQ(m2ResizeFlexDynArray(&flex, allocated), 0);
        EXPECT_EQ(change(flex, row.id, 1, row.data), 0);
        EXPECT_EQ(flex.allocatedBytes, allocated + row.grownBy);
    }
}

TEST(memChangeFlexData, failureLeavesTheArray)
{
    for (const std::uint32_t id : {1u, 3u, 9u}) {
        for (const bool own : {false, true}) {
            bool failed = true;
            for (std::uint64_t nth = 1; failed; ++nth) {
                Flex flex(Items{{1, 1, "abc"}, {5, 1, "five times five"}});
                const auto before = stateOf(flex);
                const void* data = own ? static_cast<const void*>(flex.data + 27) : "0123456789";
                const FailingAllocation failure(nth);
                const std::int16_t status = memChangeFlexData(&flex, id, 1, 10, data);
                failed = failure.hasHappened();
                EXPECT_EQ(status, failed ? kMemErrNoMemory : 0);
                EXPECT_EQ(stateOf(flex) == before, failed);
            }
        }
    }
}

TEST(memChangeFlexData, sizesBeyond32BitsCountAsOutOfMemory)
{
    Flex flex(Items{{1, 1, "abc"}});
    const auto before = stateOf(flex);
    for (const std::uint32_t id : {0u, 1u, 2u})
        EXPECT_EQ(memChangeFlexData(&flex, id, 1, UINT32_MAX, "x"), kMemErrNoMemory);
    EXPECT_TRUE(stateOf(flex) == before);
}

TEST(memChangeFlexData, dataMayLieInTheBlock)
{
    const std::string text = "five times five";
    for (const std::uint32_t id : {1u, 3u, 5u, 9u}) {
        Flex flex(Items{{1, 1, "abc"}, {5, 1, text}});
        EXPECT_EQ(memChangeFlexData(&flex, id, 1, 10, flex.data + 27), 0);
        for (const auto& item : itemsOf(flex)) {
            EXPECT_TRUE(item.id != id || item.data == text.substr(0, 10));
        }
    }
}

TEST(memChangeFlexData, rebuildsTheIndexUnlessTheSizeStays)
{
    const struct {
        const char* name;
        std::uint32_t id;
        const char* data;
        bool rebuilt;
    } rows[] = {
        {"same size", 1, "def", false}, {"longer", 1, "abcd", true}, {"shorter", 1, "a", true},
        {"insert", 2, "x", true},       {"append", 9, "x", true},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        Flex flex(Items{{1, 1, "abc"}, {5, 1, "five"}});
        ASSERT_EQ(memBuildFlexIndex(&flex), 0);
        flex.index.data[4] = 99;  // the location of the first entry: a rebuilt index has 0 there
        EXPECT_EQ(change(flex, row.id, 1, row.data), 0);
        EXPECT_EQ(indexOf(flex)[0].location, row.rebuilt ? 0u : 99u);
    }
}

TEST(memChangeFlexData, withoutMemoryForTheIndexTheChangeStandsAndTheIndexGoes)
{
    Flex flex(Items{{1, 1, "abc"}});
    ASSERT_EQ(m2ResizeFlexDynArray(&flex, 500), 0);
    ASSERT_EQ(memBuildFlexIndex(&flex), 0);
    const FailingAllocation failure(1);
    EXPECT_EQ(change(flex, 2, 1, "x"), 0);
    EXPECT_TRUE(failure.hasHappened());
    EXPECT_EQ(itemsOf(flex), (Items{{1, 1, "abc"}, {2, 1, "x"}}));
    EXPECT_FALSE(memHasFlexIndex(&flex));
}

TEST(memChangeFlexData, itemThatRunsPastTheUsedBytesIsNotReplaced)
{
    Flex flex(test::headerBytes(1, 4, 1) + "abc");
    const auto before = stateOf(flex);
    for (const char* data : {"", "abcd", "abcdefgh"})
        EXPECT_EQ(change(flex, 1, 1, data), kMemErrBadPosition);
    EXPECT_TRUE(stateOf(flex) == before);
    EXPECT_EQ(change(flex, 2, 1, "x"), 0);
    EXPECT_EQ(usedBytesOf(flex), before.bytes + test::headerBytes(2, 1, 1) + "x");
}

TEST(memDeleteAllFlexItems, keepsTheBlockAndDropsTheIndex)
{
    Flex flex(Items{{1, 1, "abc"}});
    ASSERT_EQ(memBuildFlexIndex(&flex), 0);
    EXPECT_EQ(memDeleteAllFlexItems(&flex), 0);
    EXPECT_EQ(flex.usedBytes, 0u);
    EXPECT_TRUE(memValidFlexDynArray(&flex));
    EXPECT_EQ(flex.index.data, nullptr);
    EXPECT_EQ(flex.index.itemSize, 8u);
    EXPECT_EQ(memDeleteAllFlexItems(&flex), 0);
}
