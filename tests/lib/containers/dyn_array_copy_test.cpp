// Copies of whole arrays.

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

TEST(memCopyDynArray, makesTheDestinationWhenItHasNoBlock)
{
    Array source(4, 9);
    fill(source, 2);
    Array dest;
    EXPECT_EQ(memCopyDynArray(&source, &dest), 0);
    EXPECT_EQ(dest.itemSize, 4u);
    EXPECT_EQ(dest.allocatedAmount, 9u);
    EXPECT_EQ(itemsOf<std::uint32_t>(dest), (IDs{0, 1}));
    EXPECT_NE(dest.data, source.data);
}

TEST(memCopyDynArray, takesTheItemSizeWhenTheDestinationHasNoBlock)
{
    ArrayOf<std::uint32_t> source({10, 20});
    Array dest(8, 3);
    ASSERT_EQ(memFreeDynArray(&dest), 0);
    ASSERT_EQ(dest.itemSize, 8u);
    EXPECT_EQ(memCopyDynArray(&source, &dest), 0);
    EXPECT_EQ(dest.itemSize, 4u);
    EXPECT_EQ(itemsOf<std::uint32_t>(dest), (IDs{10, 20}));
}

TEST(memCopyDynArray, takesTheAllocatedAmountOfTheSourceUpAndDown)
{
    for (const std::uint32_t capacity : {1u, 9u, 50u}) {
        Array source(4, 9);
        fill(source, 2);
        Array dest(4, capacity);
        fill(dest, 1);
        EXPECT_EQ(memCopyDynArray(&source, &dest), 0);
        EXPECT_EQ(dest.allocatedAmount, 9u);
        EXPECT_EQ(itemsOf<std::uint32_t>(dest), (IDs{0, 1}));
    }
}

TEST(memCopyDynArray, mismatchIsMinusOne)
{
    ArrayOf<std::uint32_t> source({10});
    ArrayOf<std::uint64_t> dest({11});
    const auto before = stateOf(dest);
    EXPECT_EQ(memCopyDynArray(&source, nullptr), -1);
    EXPECT_EQ(memCopyDynArray(&source, &dest), -1);
    EXPECT_TRUE(stateOf(dest) == before);
}

TEST(memCopyDynArray, emptySourceEmptiesTheDestination)
{
    const Array source(4, 0);
    ArrayOf<std::uint32_t> dest({10});
    EXPECT_EQ(memCopyDynArray(&source, &dest), 0);
    EXPECT_EQ(dest.itemCount, 0u);
    EXPECT_EQ(dest.allocatedAmount, 0u);
}

TEST(memCopyDynArray, ontoItselfChangesNothing)
{
    ArrayOf<std::uint32_t> array({10, 20});
    const auto before = stateOf(array);
    EXPECT_EQ(memCopyDynArray(&array, &array), 0);
    EXPECT_TRUE(stateOf(array) == before);
}

TEST(memCopyDynArray, failedEnlargementLeavesTheDestination)
{
    ArrayOf<std::uint32_t> source({10, 20});
    ArrayOf<std::uint32_t> dest({30});
    const auto before = stateOf(dest);
    {
        const FailingAllocation failure(1);
        EXPECT_EQ(memCopyDynArray(&source, &dest), kMemErrNoMemory);
    }
    EXPECT_TRUE(stateOf(dest) == before);

    Array without;
    const FailingAllocation failure(1);
    EXPECT_EQ(memCopyDynArray(&source, &without), kMemErrNoMemory);
    EXPECT_EQ(without.itemSize, 0u);
    EXPECT_EQ(without.data, nullptr);
}

TEST(memCopyDynArray, failedReductionCopiesIntoTheLargerBlock)
{
    ArrayOf<std::uint32_t> source({10});
    ArrayOf<std::uint32_t> dest({30, 40});
    const FailingAllocation failure(1);
    EXPECT_EQ(memCopyDynArray(&source, &dest), 0);
    EXPECT_TRUE(failure.hasHappened());
    EXPECT_EQ(dest.allocatedAmount, 2u);
    EXPECT_EQ(itemsOf<std::uint32_t>(dest), IDs{10});
}

TEST(memCopyDynArray, countAboveTheBlockCopiesNoMoreThanTheBlock)
{
    ArrayOf<std::uint32_t> source({10, 20, 30});
    ASSERT_EQ(memResizeMemory(&source, 1), 0);
    Array dest;
    EXPECT_EQ(memCopyDynArray(&source, &dest), 0);
    EXPECT_EQ(dest.itemCount, 3u);
    EXPECT_EQ(dest.allocatedAmount, 1u);
    EXPECT_EQ(memGetItemID(&dest, 0), 10u);
}
