#include "lib/containers/dyn_array.h"

#include "tests/lib/containers/containers_under_test.h"

#include <gtest/gtest.h>

#include <cstring>

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

TEST(memNewDynArray, givesAnEmptyArrayWithTheRequestedCapacity)
{
    Array array;
    array.itemCount = 7;
    EXPECT_EQ(memNewDynArray(&array, 4, 10), 0);
    EXPECT_EQ(memGetItemSize(&array), 4u);
    EXPECT_EQ(memGetAllocatedAmount(&array), 10u);
    EXPECT_EQ(memGetItemCount(&array), 0u);
    EXPECT_TRUE(memValidDynArray(&array));
}

TEST(memNewDynArray, capacityZeroSucceedsAndTheFirstItemsGrowIt)
{
    Array array;
    EXPECT_EQ(memNewDynArray(&array, 4, 0), 0);
    EXPECT_EQ(array.itemSize, 4u);
    EXPECT_EQ(array.allocatedAmount, 0u);
    EXPECT_FALSE(memValidDynArray(&array));
    fill(array, 40);
    EXPECT_EQ(array.allocatedAmount, 40u);
    fill(array, 1);
    EXPECT_EQ(array.allocatedAmount, 80u);
}

TEST(memNewDynArray, failureGivesARecordOfZeros)
{
    DynArray array{1, 2, 3, nullptr};
    const FailingAllocation failure(1);
    EXPECT_EQ(memNewDynArray(&array, 4, 10), kMemErrNoMemory);
    EXPECT_TRUE(failure.hasHappened());
    EXPECT_EQ(array.itemSize, 0u);
    EXPECT_EQ(array.allocatedAmount, 0u);
    EXPECT_EQ(array.itemCount, 0u);
    EXPECT_EQ(array.data, nullptr);
}

TEST(memNewDynArray, aProductBeyond32BitsCountsAsOutOfMemory)
{
    const struct {
        const char* name;
        std::uint32_t itemSize, capacity;
    } rows[] = {
        {"wraps to 0", 0x10000, 0x10000},
        {"wraps to 65536", 0x10000, 0x10001},
        {"the largest", UINT32_MAX, UINT32_MAX},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        Array array;
        EXPECT_EQ(memNewDynArray(&array, row.itemSize, row.capacity), kMemErrNoMemory);
        EXPECT_EQ(array.itemSize, 0u);
        EXPECT_EQ(array.data, nullptr);
    }
}

TEST(memNewDynArray, acceptsItemsOfZeroBytes)
{
    Array array(0, 1);
    EXPECT_TRUE(memValidDynArray(&array));
    EXPECT_EQ(memAppendItem(&array, &kItem), 0);
    EXPECT_EQ(memAppendItem(&array, &kItem), 0);
    EXPECT_EQ(memInsertOneItem(&array, 1, &kItem), 0);
    EXPECT_EQ(memDeleteOneItem(&array, 0), 0);
    EXPECT_EQ(array.itemCount, 2u);
    char untouched = 'x';
    EXPECT_EQ(memCopyItemData(&array, 1, &untouched), 0);
    EXPECT_EQ(untouched, 'x');
    EXPECT_TRUE(memSameData(&array, 0, nullptr));
}

TEST(memSetInvalid, zeroesTheItemSizeAsWell)
{
    std::uint8_t block[4];
    DynArray array{4, 1, 1, block};
    memSetInvalid(&array);
    EXPECT_EQ(array.itemSize, 0u);
    EXPECT_EQ(array.allocatedAmount, 0u);
    EXPECT_EQ(array.itemCount, 0u);
    EXPECT_EQ(array.data, nullptr);
}

TEST(memSetInvalid, recordOfZerosCanBeAppendedToOnceItHasAnItemSize)
{
    Array array;
    array.itemSize = 4;
    EXPECT_EQ(memAppendItem(&array, &kItem), 0);
    EXPECT_EQ(array.allocatedAmount, 40u);
    EXPECT_EQ(itemsOf<std::uint32_t>(array), IDs{kItem});
}

TEST(memValidDynArray, needsAnAmountAndABlock)
{
    std::uint8_t block[4];
    const DynArray rows[] = {{4, 0, 0, nullptr}, {4, 1, 0, nullptr}, {4, 0, 1, block}};
    for (const DynArray& row : rows) EXPECT_FALSE(memValidDynArray(&row));
    const DynArray valid{4, 1, 0, block};
    EXPECT_TRUE(memValidDynArray(&valid));
}

TEST(memFreeDynArray, keepsTheItemSize)
{
    Array array(4, 3);
    fill(array, 2);
    EXPECT_EQ(memFreeDynArray(&array), 0);
    EXPECT_EQ(array.itemSize, 4u);
    EXPECT_EQ(array.allocatedAmount, 0u);
    EXPECT_EQ(array.itemCount, 0u);
    EXPECT_EQ(array.data, nullptr);
    EXPECT_EQ(memFreeDynArray(&array), 0);
}

TEST(memFreeDynArray, leavesAnInvalidRecordAlone)
{
    std::uint8_t block[4];
    DynArray array{4, 0, 1, block};
    EXPECT_EQ(memFreeDynArray(&array), 0);
    EXPECT_EQ(array.itemCount, 1u);
    EXPECT_EQ(array.data, block);
}

TEST(memResizeMemory, leavesTheCountAloneEvenBelowIt)
{
    Array array(4, 5);
    fill(array, 5);
    EXPECT_EQ(memResizeMemory(&array, 2), 0);
    EXPECT_EQ(array.allocatedAmount, 2u);
    EXPECT_EQ(array.itemCount, 5u);
    EXPECT_EQ(memGetItemID(&array, 1), 1u);
}

TEST(memResizeMemory, toZeroSucceeds)
{
    Array array(4, 5);
    EXPECT_EQ(memResizeMemory(&array, 0), 0);
    EXPECT_EQ(array.allocatedAmount, 0u);
    EXPECT_EQ(memAppendItem(&array, &kItem), 0);
    EXPECT_EQ(array.allocatedAmount, 40u);
}

TEST(memResizeMemory, failureLeavesTheRecord)
{
    Array array(4, 5);
    fill(array, 5);
    const auto before = stateOf(array);
    {
        const FailingAllocation failure(1);
        EXPECT_EQ(memResizeMemory(&array, 50), kMemErrNoMemory);
    }
    EXPECT_EQ(memResizeMemory(&array, UINT32_MAX), kMemErrNoMemory);
    EXPECT_TRUE(stateOf(array) == before);
}

TEST(memShrinkToUsed, givesBackTheFreeSlots)
{
    Array array(4, 100);
    fill(array, 3);
    {
        const auto before = stateOf(array);
        const FailingAllocation failure(1);
        EXPECT_EQ(memShrinkToUsed(&array), kMemErrNoMemory);
        EXPECT_TRUE(stateOf(array) == before);
    }
    EXPECT_EQ(memShrinkToUsed(&array), 0);
    EXPECT_EQ(array.allocatedAmount, 3u);
    EXPECT_EQ(itemsOf<std::uint32_t>(array), (IDs{0, 1, 2}));
    array.itemCount = 0;
    EXPECT_EQ(memShrinkToUsed(&array), 0);
    EXPECT_EQ(array.allocatedAmount, 0u);
}

TEST(memGetItemPtr, givesTheAddressInTheBlock)
{
    const ArrayOf<std::uint32_t> array({10, 20});
    void* item = nullptr;
    EXPECT_EQ(memGetItemPtr(&array, 1, &item), 0);
    EXPECT_EQ(item, array.data + 4);
}

TEST(memGetItemPtr, nullsThePointerBeyondTheCount)
{
    const ArrayOf<std::uint32_t> array({10, 20});
    for (const std::uint32_t index : {2u, 3u, UINT32_MAX}) {
        void* item = array.data;
        EXPECT_EQ(memGetItemPtr(&array, index, &item), kMemErrNotFound);
        EXPECT_EQ(item, nullptr);
    }
}

TEST(memCopyItemData, copiesOneItem)
{
    const ArrayOf<std::uint32_t> array({10, 20});
    std::uint32_t item[2] = {1, 1};
    EXPECT_EQ(memCopyItemData(&array, 1, item), 0);
    EXPECT_EQ(item[0], 20u);
    EXPECT_EQ(item[1], 1u);
    EXPECT_EQ(memCopyItemData(&array, 2, item), kMemErrNotFound);
    const Array empty(4, 3);
    EXPECT_EQ(memCopyItemData(&empty, 0, item), kMemErrNotFound);
    const DynArray withoutBlock{4, 0, 3, nullptr};
    EXPECT_EQ(memCopyItemData(&withoutBlock, 0, item), kMemErrNotFound);
}

TEST(memGetItemID, readsTheFirst4BytesAtAnyAddress)
{
    Array array(7, 2);
    const std::uint8_t item[7] = {1, 2, 3, 4, 5, 6, 7};
    ASSERT_EQ(memAppendItem(&array, item), 0);
    ASSERT_EQ(memAppendItem(&array, item), 0);
    std::uint32_t expected;
    std::memcpy(&expected, item, 4);
    EXPECT_EQ(memGetItemID(&array, 1), expected);
}

TEST(memGetItemIDUInt64, readsTheFirst8BytesAtAnyAddress)
{
    Array array(9, 2);
    const std::uint8_t item[9] = {1, 2, 3, 4, 5, 6, 7, 8, 9};
    ASSERT_EQ(memAppendItem(&array, item), 0);
    ASSERT_EQ(memAppendItem(&array, item), 0);
    std::uint64_t expected;
    std::memcpy(&expected, item, 8);
    EXPECT_EQ(memGetItemIDUInt64(&array, 1), expected);
}

TEST(memSameData, comparesLengthAndBytes)
{
    const ArrayOf<std::uint32_t> array({10, 20});
    const std::uint32_t same[] = {10, 20, 30};
    const std::uint32_t other[] = {10, 21};
    EXPECT_TRUE(memSameData(&array, 8, same));
    EXPECT_FALSE(memSameData(&array, 8, other));
    EXPECT_FALSE(memSameData(&array, 4, same));
    EXPECT_FALSE(memSameData(&array, 12, same));
    const Array empty(4, 3);
    EXPECT_TRUE(memSameData(&empty, 0, nullptr));
    // 0x10000 items of 0x10000 bytes are not 0 bytes.
    const DynArray large{0x10000, 0x10000, 0x10000, array.data};
    EXPECT_FALSE(memSameData(&large, 0, same));
}
