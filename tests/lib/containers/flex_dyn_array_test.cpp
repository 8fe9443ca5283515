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
