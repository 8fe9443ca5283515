#include "lib/containers/dyn_array_sort.h"

#include "tests/lib/containers/containers_under_test.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <random>

using namespace pinorama;

using test::Array;
using test::ArrayOf;
using test::itemsOf;
using IDs = std::vector<std::uint32_t>;

namespace {
int byID(void* context, const void* a, const void* b)
{
    EXPECT_EQ(context, nullptr);
    std::uint32_t left, right;
    std::memcpy(&left, a, sizeof left);
    std::memcpy(&right, b, sizeof right);
    return left < right ? -1 : left > right ? 1 : 0;
}

int byIDDescending(void* context, const void* a, const void* b)
{
    return byID(context, b, a);
}
}  // namespace

TEST(memQuickSort, passesTheComparatorANullContextAndTheItems)
{
    ArrayOf<std::uint32_t> array({30, 10, UINT32_MAX, 20, 10});
    memQuickSort(&array, byID);
    EXPECT_EQ(itemsOf<std::uint32_t>(array), (IDs{10, 10, 20, 30, UINT32_MAX}));
    memQuickSort(&array, byIDDescending);
    EXPECT_EQ(itemsOf<std::uint32_t>(array), (IDs{UINT32_MAX, 30, 20, 10, 10}));
}

TEST(memQuickSort, movesWholeItemsOfAnySize)
{
    std::mt19937 random(3);
    for (const std::uint32_t size : {4u, 7u, 12u, 33u, 100u}) {
        Array array(size, 0);
        std::vector<std::string> expected;
        for (int i = 0; i < 300; ++i) {
            const std::uint32_t id = random();
            std::string item(size, static_cast<char>(i));
            std::memcpy(item.data(), &id, sizeof id);
            ASSERT_EQ(memAppendItem(&array, item.data()), 0);
            expected.push_back(item);
        }
        std::sort(expected.begin(), expected.end(), [](const auto& a, const auto& b) {
            return byID(nullptr, a.data(), b.data()) < 0;
        });
        memQuickSort(&array, byID);
        for (std::uint32_t i = 0; i < array.itemCount; ++i) {
            ASSERT_EQ(std::memcmp(array.data + i * size, expected[i].data(), size), 0);
        }
    }
}

TEST(memQuickSort, acceptsArraysWithNothingToSort)
{
    Array withoutBlock(4, 0);
    memQuickSort(&withoutBlock, byID);
    ArrayOf<std::uint32_t> one({7});
    memQuickSort(&one, byID);
    EXPECT_EQ(itemsOf<std::uint32_t>(one), IDs{7});
    Array withoutBytes(0, 4);
    withoutBytes.itemCount = 3;
    memQuickSort(&withoutBytes, byID);
}

TEST(memUInt64SortCompare, comparesTheAddressesAndNotTheIds)
{
    const std::uint64_t items[2] = {20, 10};
    EXPECT_EQ(memUInt64SortCompare(nullptr, &items[0], &items[1]), -1);
    EXPECT_EQ(memUInt64SortCompare(nullptr, &items[1], &items[0]), 1);
    EXPECT_EQ(memUInt64SortCompare(nullptr, &items[1], &items[1]), 0);
}

TEST(memSortUInt64ArrayByID, leavesTheOrderAlone)
{
    std::mt19937_64 random(4);
    for (const std::size_t count : {0u, 1u, 2u, 5u, 1000u}) {
        std::vector<std::uint64_t> ids(count);
        for (std::uint64_t& id : ids) id = random();
        ArrayOf<std::uint64_t> array(ids);
        memSortUInt64ArrayByID(&array);
        EXPECT_EQ(itemsOf<std::uint64_t>(array), ids);
    }
}

TEST(memSortUInt64ArrayByID, leavesTheOrderOfLargeItemsAlone)
{
    Array array(40, 0);
    for (std::uint64_t id = 100; id > 0; --id) {
        std::uint64_t item[5] = {id};
        ASSERT_EQ(memAppendItem(&array, item), 0);
    }
    memSortUInt64ArrayByID(&array);
    for (std::uint32_t i = 0; i < 100; ++i) ASSERT_EQ(memGetItemIDUInt64(&array, i), 100 - i);
}
