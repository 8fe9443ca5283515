#include "lib/containers/flex_runs.h"

#include "lib/containers/flex_index.h"
#include "tests/lib/containers/containers_under_test.h"

#include <gtest/gtest.h>

using namespace pinorama;

using test::FailingAllocation;
using test::Flex;
using test::headerBytes;
using test::indexOf;
using test::itemsOf;
using test::stateOf;
using test::usedBytesOf;
using Entries = std::vector<test::IndexEntry>;
using Items = std::vector<test::FlexItem>;

namespace {
const Items kItems{{3, 1, "abc"}, {3, 2, ""}, {7, 1, "seven"}, {3, 9, "again"}};
}  // namespace

TEST(memExtractFlexItemsForSpecificID, copiesTheFirstRun)
{
    const Flex source(kItems);
    const struct {
        std::uint32_t id;
        Items expected;
    } rows[] = {{3, {kItems[0], kItems[1]}}, {7, {kItems[2]}}};
    for (const auto& row : rows) {
        Flex dest;
        EXPECT_EQ(memExtractFlexItemsForSpecificID(&source, row.id, &dest), 0);
        EXPECT_EQ(itemsOf(dest), row.expected);
        EXPECT_EQ(dest.allocatedBytes, dest.usedBytes);
    }
}

TEST(memExtractFlexItemsForSpecificID, runMayReachTheEnd)
{
    const Flex source(Items{{3, 1, "abc"}, {7, 1, "seven"}, {7, 2, ""}});
    Flex dest;
    EXPECT_EQ(memExtractFlexItemsForSpecificID(&source, 7, &dest), 0);
    EXPECT_EQ(itemsOf(dest), (Items{{7, 1, "seven"}, {7, 2, ""}}));
}

TEST(memExtractFlexItemsForSpecificID, missingIdLeavesTheDestination)
{
    const Flex source(kItems);
    Flex dest(Items{{1, 1, "x"}});
    const auto before = stateOf(dest);
    EXPECT_EQ(memExtractFlexItemsForSpecificID(&source, 4, &dest), kMemErrNotFound);
    EXPECT_TRUE(stateOf(dest) == before);
    const Flex empty;
    EXPECT_EQ(memExtractFlexItemsForSpecificID(&empty, 0, &dest), kMemErrNotFound);
}

TEST(memExtractFlexItemsForSpecificID, overwritesTheDestinationWithoutFreeingIt)
{
    const Flex source(kItems);
    std::uint8_t block[1];
    Flex dest;
    dest.data = block;
    dest.allocatedBytes = 1;
    dest.index = {8, 1, 1, block};
    EXPECT_EQ(memExtractFlexItemsForSpecificID(&source, 7, &dest), 0);
    EXPECT_EQ(dest.index.data, nullptr);
}

TEST(memExtractFlexItemsForSpecificID, failureZeroesTheDestination)
{
    const Flex source(kItems);
    FlexDynArray dest{1, 2, nullptr, {8, 0, 0, nullptr}};
    const FailingAllocation failure(1);
    EXPECT_EQ(memExtractFlexItemsForSpecificID(&source, 3, &dest), kMemErrNoMemory);
    EXPECT_EQ(dest.allocatedBytes, 0u);
    EXPECT_EQ(dest.usedBytes, 0u);
    EXPECT_EQ(dest.data, nullptr);
    EXPECT_EQ(dest.index.itemSize, 0u);
}

TEST(memExtractFlexItemsForSpecificID, damagedLastItemIsCutAtTheUsedBytes)
{
    for (const std::uint32_t size : {4u, 100u, UINT32_MAX}) {
        const Flex source(test::bytesOf({{1, 1, "x"}}) + headerBytes(3, size, 1) + "abc");
        Flex dest;
        EXPECT_EQ(memExtractFlexItemsForSpecificID(&source, 3, &dest), 0);
        EXPECT_EQ(usedBytesOf(dest), headerBytes(3, size, 1) + "abc");
    }
}

TEST(memExtractFlexItemsForSpecificID, leavesOutLessThanAHeaderAtTheEnd)
{
    const Flex source(test::bytesOf({{3, 1, "abc"}}) + "garbage");
    Flex dest;
    EXPECT_EQ(memExtractFlexItemsForSpecificID(&source, 3, &dest), 0);
    EXPECT_EQ(itemsOf(dest), (Items{{3, 1, "abc"}}));
}

TEST(memReplaceFlexItemsForSpecificID, setsEveryItemUnderTheNewId)
{
    const Flex source(Items{{1, 1, "one"}, {2, 2, "two"}, {9, 1, "last"}});
    Flex dest(Items{{4, 1, "old"}, {5, 2, "kept"}, {6, 1, "kept"}});
    EXPECT_EQ(memReplaceFlexItemsForSpecificID(&source, &dest, 5), 0);
    EXPECT_EQ(itemsOf(dest), (Items{{4, 1, "old"}, {5, 2, "two"}, {5, 1, "last"}, {6, 1, "kept"}}));
    const Flex empty;
    EXPECT_EQ(memReplaceFlexItemsForSpecificID(&empty, &dest, 4), 0);
}

TEST(memReplaceFlexItemsForSpecificID, stopsAtTheFirstFailure)
{
    const Flex source(Items{{1, 1, "one"}, {2, 2, std::string(5000, 'x')}});
    Flex dest;
    const FailingAllocation failure(2);
    EXPECT_EQ(memReplaceFlexItemsForSpecificID(&source, &dest, 5), kMemErrNoMemory);
    EXPECT_EQ(itemsOf(dest), (Items{{5, 1, "one"}}));
}

TEST(memReplaceFlexItemsForSpecificID, stopsAtADamagedSourceItem)
{
    for (const std::uint32_t size : {4u, UINT32_MAX}) {
        const Flex source(test::bytesOf({{1, 1, "x"}}) + headerBytes(3, size, 2) + "abc");
        Flex dest;
        EXPECT_EQ(memReplaceFlexItemsForSpecificID(&source, &dest, 5), kMemErrBadPosition);
        EXPECT_EQ(itemsOf(dest), (Items{{5, 1, "x"}}));
    }
}

TEST(memAdjustIDinFlexDynArray, writesTheIdEverywhereAndRebuildsTheIndex)
{
    Flex flex(Items{{3, 1, "abc"}, {7, 2, ""}, {8, 3, "x"}});
    ASSERT_EQ(memBuildFlexIndex(&flex), 0);
    EXPECT_EQ(memAdjustIDinFlexDynArray(&flex, 5), 0);
    EXPECT_EQ(itemsOf(flex), (Items{{5, 1, "abc"}, {5, 2, ""}, {5, 3, "x"}}));
    EXPECT_EQ(indexOf(flex), (Entries{{5, 0}}));
    Flex empty;
    EXPECT_EQ(memAdjustIDinFlexDynArray(&empty, 5), 0);
}

TEST(memAdjustIDinFlexDynArray, allowsAnItemToRunPastTheUsedBytesBy12)
{
    const std::string rest(8, 'x');
    const struct {
        const char* name;
        std::uint32_t size;
        std::int16_t status;
        std::uint32_t secondID;
    } rows[] = {
        {"fits", 8, 0, 5},
        {"location + size at the end", 20, 0, 5},
        {"location + size 12 after the end", 32, 0, 5},
        {"one more", 33, kMemErrBadPosition, 2},
        {"wraps", UINT32_MAX, kMemErrBadPosition, 2},
        {"wraps to the start", UINT32_MAX - 12, kMemErrBadPosition, 2},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        Flex flex(test::bytesOf({{1, 1, "a"}}) + headerBytes(2, row.size, 1) + rest);
        EXPECT_EQ(memAdjustIDinFlexDynArray(&flex, 5), row.status);
        EXPECT_EQ(usedBytesOf(flex),
                  test::bytesOf({{5, 1, "a"}}) + headerBytes(row.secondID, row.size, 1) + rest);
    }
}

TEST(memAdjustIDinFlexDynArray, rebuildsTheIndexOfADamagedArrayToo)
{
    Flex flex(test::bytesOf({{3, 1, "abc"}, {4, 1, ""}}) + headerBytes(7, 33, 1) + "12345678");
    ASSERT_EQ(memBuildFlexIndex(&flex), 0);
    EXPECT_EQ(memAdjustIDinFlexDynArray(&flex, 5), kMemErrBadPosition);
    EXPECT_EQ(indexOf(flex), (Entries{{5, 0}, {7, 27}}));
}

TEST(memAppendFlexDynArray, appendsAndFreesTheSource)
{
    Flex source(Items{{1, 1, "one"}});
    Flex dest(Items{{3, 1, "three"}});
    ASSERT_EQ(memBuildFlexIndex(&source), 0);
    ASSERT_EQ(memBuildFlexIndex(&dest), 0);
    EXPECT_EQ(memAppendFlexDynArray(&source, &dest), 0);
    EXPECT_EQ(itemsOf(dest), (Items{{3, 1, "three"}, {1, 1, "one"}}));
    EXPECT_EQ(indexOf(dest), (Entries{{3, 0}, {1, 17}}));
    EXPECT_EQ(source.data, nullptr);
    EXPECT_EQ(source.usedBytes, 0u);
    EXPECT_EQ(source.index.data, nullptr);
}

TEST(memAppendFlexDynArray, growsByTheUsedBytesOfTheSourceUnlessMoreIsFree)
{
    const struct {
        const char* name;
        std::uint32_t free, expected;
    } rows[] = {
        {"one byte more than needed", 16, 17 + 16},
        {"exactly sufficient", 15, 17 + 15 + 15},
        {"nothing free", 0, 17 + 15},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        Flex source(Items{{1, 1, "one"}});
        Flex dest(Items{{3, 1, "three"}});
        ASSERT_EQ(m2ResizeFlexDynArray(&source, 500), 0);
        ASSERT_EQ(m2ResizeFlexDynArray(&dest, dest.usedBytes + row.free), 0);
        EXPECT_EQ(memAppendFlexDynArray(&source, &dest), 0);
        EXPECT_EQ(dest.allocatedBytes, row.expected);
    }
}

TEST(memAppendFlexDynArray, freesAnEmptySourceToo)
{
    Flex source;
    ASSERT_EQ(memNewFlexDynArray(&source, 100), 0);
    Flex dest(Items{{3, 1, "three"}});
    const auto before = stateOf(dest);
    EXPECT_EQ(memAppendFlexDynArray(&source, &dest), 0);
    EXPECT_EQ(source.data, nullptr);
    EXPECT_TRUE(stateOf(dest) == before);
}

TEST(memAppendFlexDynArray, failureLeavesBothArrays)
{
    Flex source(Items{{1, 1, "one"}});
    Flex dest(Items{{3, 1, "three"}});
    const auto sourceBefore = stateOf(source);
    const auto destBefore = stateOf(dest);
    {
        const FailingAllocation failure(1);
        EXPECT_EQ(memAppendFlexDynArray(&source, &dest), kMemErrNoMemory);
    }
    EXPECT_TRUE(stateOf(source) == sourceBefore);
    EXPECT_TRUE(stateOf(dest) == destBefore);

    const FlexDynArray large{UINT32_MAX, UINT32_MAX - 5, dest.data, {}};
    FlexDynArray dest2 = large;
    EXPECT_EQ(memAppendFlexDynArray(&source, &dest2), kMemErrNoMemory);
    EXPECT_TRUE(stateOf(source) == sourceBefore);
}

TEST(memDeleteAllFlexData, deletesTheFirstRunOnly)
{
    Flex flex(kItems);
    const std::uint32_t allocated = flex.allocatedBytes;
    ASSERT_EQ(memBuildFlexIndex(&flex), 0);
    EXPECT_EQ(memDeleteAllFlexData(&flex, 3), 0);
    EXPECT_EQ(itemsOf(flex), (Items{kItems[2], kItems[3]}));
    EXPECT_EQ(indexOf(flex), (Entries{{7, 0}, {3, 17}}));
    EXPECT_EQ(memDeleteAllFlexData(&flex, 3), 0);
    EXPECT_EQ(memDeleteAllFlexData(&flex, 3), kMemErrNotFound);
    EXPECT_EQ(itemsOf(flex), (Items{kItems[2]}));
    EXPECT_EQ(memDeleteAllFlexData(&flex, 7), 0);
    EXPECT_EQ(flex.usedBytes, 0u);
    EXPECT_EQ(memDeleteAllFlexData(&flex, 7), kMemErrNotFound);
    EXPECT_EQ(flex.allocatedBytes, allocated);
    EXPECT_FALSE(memHasFlexIndex(&flex));
}

TEST(memDeleteAllFlexData, theLastRunTakesTheBytesAfterItAlong)
{
    for (const std::string& tail :
         {std::string("garbage"), headerBytes(3, 90, 5) + "cut", headerBytes(3, UINT32_MAX, 5)}) {
        Flex flex(test::bytesOf({{1, 1, "a"}, {3, 1, "abc"}}) + tail);
        EXPECT_EQ(memDeleteAllFlexData(&flex, 3), 0);
        EXPECT_EQ(itemsOf(flex), (Items{{1, 1, "a"}}));
    }
}
