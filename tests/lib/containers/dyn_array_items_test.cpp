// Items that are appended to an array, inserted, deleted and moved.

#include "lib/containers/dyn_array.h"

#include "tests/lib/containers/containers_under_test.h"

#include <gtest/gtest.h>

using namespace pinorama;

using test::Array;
using test::ArrayOf;
using test::FailingAllocation;
using test::fill;
using test::itemsOf;
using test::stateOf;
using IDs = std::vector<std::uint32_t>;

namespace {
constexpr std::uint32_t kItem = 0x01020304;
}  // namespace

TEST(memAppendItem, growsBy40WhenFullAndOnlyThen)
{
    Array array(4, 3);
    fill(array, 3);
    EXPECT_EQ(array.allocatedAmount, 3u);
    fill(array, 1);
    EXPECT_EQ(array.allocatedAmount, 43u);
    EXPECT_EQ(itemsOf<std::uint32_t>(array), (IDs{0, 1, 2, 0}));
}

TEST(memAppendItem, failureLeavesTheRecord)
{
    const ArrayOf<std::uint32_t> array({10, 20});
    DynArray copy = array;
    const auto before = stateOf(copy);
    const FailingAllocation failure(1);
    EXPECT_EQ(memAppendItem(&copy, &kItem), kMemErrNoMemory);
    EXPECT_TRUE(stateOf(copy) == before);
}

TEST(memAppendItem, anAmountThatCannotGrowCountsAsOutOfMemory)
{
    std::uint8_t block[4];
    DynArray array{1, UINT32_MAX - 10, UINT32_MAX - 10, block};
    EXPECT_EQ(memAppendItem(&array, &kItem), kMemErrNoMemory);
    EXPECT_EQ(array.itemCount, UINT32_MAX - 10);
}

TEST(memAppendItem, itemMayLieInTheBlockThatMoves)
{
    ArrayOf<std::uint32_t> array(IDs(40, 7));
    for (int i = 0; i < 2000; ++i) ASSERT_EQ(memAppendItem(&array, array.data + 4), 0);
    EXPECT_EQ(itemsOf<std::uint32_t>(array), IDs(2040, 7));
}

TEST(memInsertOneItem, movesTheFollowingItemsUp)
{
    const struct {
        const char* name;
        std::uint32_t index;
        IDs expected;
    } rows[] = {
        {"first", 0, {5, 10, 20}}, {"middle", 1, {10, 5, 20}}, {"count appends", 2, {10, 20, 5}}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        ArrayOf<std::uint32_t> array({10, 20});
        const std::uint32_t item = 5;
        EXPECT_EQ(memInsertOneItem(&array, row.index, &item), 0);
        EXPECT_EQ(itemsOf<std::uint32_t>(array), row.expected);
        EXPECT_EQ(array.allocatedAmount, 42u);
    }
}

TEST(memInsertOneItem, checksThePositionBeforeTheArrayGrows)
{
    ArrayOf<std::uint32_t> array({10, 20});
    const auto before = stateOf(array);
    const FailingAllocation failure(1);
    EXPECT_EQ(memInsertOneItem(&array, 3, &kItem), kMemErrBadPosition);
    EXPECT_EQ(memInsertOneItem(&array, UINT32_MAX, &kItem), kMemErrBadPosition);
    EXPECT_EQ(memInsertOneItem(&array, 2, &kItem), kMemErrNoMemory);
    EXPECT_TRUE(stateOf(array) == before);
}

TEST(memInsertOneItem, itemMayLieInTheBlock)
{
    for (std::uint32_t from = 0; from < 4; ++from) {
        for (std::uint32_t index = 0; index <= 4; ++index) {
            for (const bool full : {true, false}) {
                ArrayOf<std::uint32_t> array({10, 20, 30, 40});
                ASSERT_EQ(memResizeMemory(&array, full ? 4 : 9), 0);
                IDs expected{10, 20, 30, 40};
                expected.insert(expected.begin() + index, (from + 1) * 10);
                EXPECT_EQ(memInsertOneItem(&array, index, array.data + from * 4), 0);
                EXPECT_EQ(itemsOf<std::uint32_t>(array), expected);
            }
        }
    }
}

TEST(memInsertOneItem, bytesAcrossTwoItemsMayBeTheItem)
{
    Array array(2, 8);
    for (const char* item : {"ab", "cd", "ef"}) ASSERT_EQ(memAppendItem(&array, item), 0);
    ASSERT_EQ(memInsertOneItem(&array, 1, array.data + 1), 0);
    EXPECT_TRUE(memSameData(&array, 8, "abbccdef"));
}

TEST(memInsertMoreItems, insertsAll)
{
    ArrayOf<std::uint32_t> array({10, 20});
    const std::uint32_t items[] = {1, 2, 3};
    EXPECT_EQ(memInsertMoreItems(&array, 1, 3, items), 0);
    EXPECT_EQ(itemsOf<std::uint32_t>(array), (IDs{10, 1, 2, 3, 20}));
    EXPECT_EQ(memInsertMoreItems(&array, 5, 2, items), 0);
    EXPECT_EQ(itemsOf<std::uint32_t>(array), (IDs{10, 1, 2, 3, 20, 1, 2}));
    EXPECT_EQ(memInsertMoreItems(&array, 8, 1, items), kMemErrBadPosition);
}

TEST(memInsertMoreItems, growsEvenIfTheCapacityIsExactlySufficient)
{
    const struct {
        const char* name;
        std::uint32_t capacity, count, n, expected;
    } rows[] = {
        {"exactly sufficient", 10, 7, 3, 53},
        {"one more slot", 11, 7, 3, 11},
        {"too small", 10, 7, 4, 54},
        {"nothing into a full array", 7, 7, 0, 47},
        {"nothing into free room", 8, 7, 0, 8},
        {"nothing into an empty array without room", 0, 0, 0, 40},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        Array array(4, row.capacity);
        fill(array, row.count);
        const std::uint32_t items[4] = {};
        EXPECT_EQ(memInsertMoreItems(&array, 0, row.n, items), 0);
        EXPECT_EQ(array.allocatedAmount, row.expected);
        EXPECT_EQ(array.itemCount, row.count + row.n);
    }
}

TEST(memInsertMoreItems, failureLeavesTheRecord)
{
    ArrayOf<std::uint32_t> array({10, 20});
    const auto before = stateOf(array);
    const std::uint32_t items[4] = {};
    {
        const FailingAllocation failure(1);
        EXPECT_EQ(memInsertMoreItems(&array, 3, 2, items), kMemErrBadPosition);
        EXPECT_EQ(memInsertMoreItems(&array, 0, 2, items), kMemErrNoMemory);
    }
    EXPECT_EQ(memInsertMoreItems(&array, 0, UINT32_MAX, nullptr), kMemErrNoMemory);
    EXPECT_TRUE(stateOf(array) == before);
}

TEST(memInsertMoreItems, itemsMayLieInTheBlock)
{
    for (std::uint32_t from = 0; from < 3; ++from) {
        for (std::uint32_t index = 0; index <= 4; ++index) {
            ArrayOf<std::uint32_t> array({10, 20, 30, 40});
            IDs expected{10, 20, 30, 40};
            const IDs inserted(expected.begin() + from, expected.begin() + from + 2);
            expected.insert(expected.begin() + index, inserted.begin(), inserted.end());
            EXPECT_EQ(memInsertMoreItems(&array, index, 2, array.data + from * 4), 0);
            EXPECT_EQ(itemsOf<std::uint32_t>(array), expected);
        }
    }
}

TEST(memInsertMoreItems, eachFailureWithItemsInTheBlockLeavesTheRecord)
{
    ArrayOf<std::uint32_t> array({10, 20, 30});
    const auto before = stateOf(array);
    for (const std::uint64_t nth : {1, 2}) {
        const FailingAllocation failure(nth);
        EXPECT_EQ(memInsertMoreItems(&array, 1, 2, array.data), kMemErrNoMemory);
        EXPECT_TRUE(failure.hasHappened());
        EXPECT_TRUE(stateOf(array) == before);
    }
}

TEST(memDeleteOneItem, movesTheFollowingItemsDown)
{
    ArrayOf<std::uint32_t> array({10, 20, 30});
    EXPECT_EQ(memDeleteOneItem(&array, 3), kMemErrNotFound);
    EXPECT_EQ(memDeleteOneItem(&array, 0), 0);
    EXPECT_EQ(itemsOf<std::uint32_t>(array), (IDs{20, 30}));
    EXPECT_EQ(memDeleteOneItem(&array, 1), 0);
    EXPECT_EQ(itemsOf<std::uint32_t>(array), IDs{20});
    EXPECT_EQ(memDeleteOneItem(&array, 0), 0);
    EXPECT_EQ(memDeleteOneItem(&array, 0), kMemErrNotFound);
    EXPECT_EQ(array.allocatedAmount, 3u);
}

TEST(memDeleteLastItem, givesMinusOneForAnEmptyArray)
{
    ArrayOf<std::uint32_t> array({10, 20});
    EXPECT_EQ(memDeleteLastItem(&array), 0);
    EXPECT_EQ(itemsOf<std::uint32_t>(array), IDs{10});
    EXPECT_EQ(memDeleteLastItem(&array), 0);
    EXPECT_EQ(memDeleteLastItem(&array), -1);
    EXPECT_EQ(array.itemCount, 0u);
    EXPECT_EQ(array.allocatedAmount, 2u);
}

TEST(memDeleteAllItems, keepsTheBlock)
{
    ArrayOf<std::uint32_t> array({10, 20});
    EXPECT_EQ(memDeleteAllItems(&array), 0);
    EXPECT_EQ(array.itemCount, 0u);
    EXPECT_TRUE(memValidDynArray(&array));
}

TEST(memMoveItemToNewIndex, takesThePlaceAfterTheRemoval)
{
    const struct {
        const char* name;
        std::uint32_t from, to;
        std::int16_t status;
        IDs expected;
    } rows[] = {
        {"up", 0, 2, 0, {20, 30, 10, 40}},
        {"to the end", 0, 3, 0, {20, 30, 40, 10}},
        {"down", 3, 0, 0, {40, 10, 20, 30}},
        {"same place", 2, 2, 0, {10, 20, 30, 40}},
        {"same place beyond the array", 9, 9, 0, {10, 20, 30, 40}},
        {"no such item", 4, 0, kMemErrNotFound, {10, 20, 30, 40}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        ArrayOf<std::uint32_t> array({10, 20, 30, 40});
        EXPECT_EQ(memMoveItemToNewIndex(&array, row.from, row.to), row.status);
        EXPECT_EQ(itemsOf<std::uint32_t>(array), row.expected);
        EXPECT_EQ(array.allocatedAmount, 4u);
    }
}

TEST(memMoveItemToNewIndex, anIndexBeyondTheShortenedArrayLosesTheItem)
{
    for (const std::uint32_t to : {4u, 5u, UINT32_MAX}) {
        ArrayOf<std::uint32_t> array({10, 20, 30, 40});
        EXPECT_EQ(memMoveItemToNewIndex(&array, 1, to), kMemErrBadPosition);
        EXPECT_EQ(itemsOf<std::uint32_t>(array), (IDs{10, 30, 40}));
    }
}

TEST(memMoveItemToNewIndex, emptyArrayHasNoItemExceptForEqualIndexes)
{
    Array array(4, 3);
    EXPECT_EQ(memMoveItemToNewIndex(&array, 0, 0), 0);
    EXPECT_EQ(memMoveItemToNewIndex(&array, 0, 1), kMemErrNotFound);
    const DynArray withoutBlock{4, 0, 3, nullptr};
    DynArray copy = withoutBlock;
    EXPECT_EQ(memMoveItemToNewIndex(&copy, 0, 1), kMemErrNotFound);
}

TEST(memMoveItemToNewIndex, equalIndexesNeedNoMemory)
{
    ArrayOf<std::uint32_t> array({10, 20});
    const FailingAllocation failure(1);
    EXPECT_EQ(memMoveItemToNewIndex(&array, 1, 1), 0);
    EXPECT_FALSE(failure.hasHappened());
}

TEST(memMoveItemToNewIndex, failureLeavesTheRecord)
{
    ArrayOf<std::uint32_t> array({10, 20});
    const auto before = stateOf(array);
    const FailingAllocation failure(1);
    EXPECT_EQ(memMoveItemToNewIndex(&array, 0, 1), kMemErrNoMemory);
    EXPECT_TRUE(stateOf(array) == before);
}
