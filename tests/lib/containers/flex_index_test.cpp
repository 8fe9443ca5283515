#include "lib/containers/flex_index.h"

#include "lib/containers/flex_lookup.h"
#include "tests/lib/containers/containers_under_test.h"

#include <gtest/gtest.h>

using namespace pinorama;

using test::FailingAllocation;
using test::Flex;
using test::indexOf;
using Entries = std::vector<test::IndexEntry>;
using Items = std::vector<test::FlexItem>;

namespace {
// `count` IDs from `first` on, `apart` apart, with one item of one byte each: 13 bytes an item.
Items manyIDs(std::uint32_t count, std::uint32_t first, std::uint32_t apart)
{
    Items items;
    for (std::uint32_t i = 0; i < count; ++i) items.push_back({first + i * apart, 1, "x"});
    return items;
}

bool isFound(const Flex& flex, std::uint32_t id, std::uint32_t location)
{
    std::uint32_t found = 0;
    return m2LookupFlexDataOffset(&flex, id, 1, &found) == 0 && found == location;
}
}  // namespace

TEST(memBuildFlexIndex, givesEveryIdTheLocationOfItsFirstItem)
{
    Flex flex(Items{{3, 1, "abc"}, {3, 2, "de"}, {7, 1, ""}, {UINT32_MAX, 1, "f"}});
    EXPECT_EQ(memBuildFlexIndex(&flex), 0);
    EXPECT_TRUE(memHasFlexIndex(&flex));
    EXPECT_EQ(flex.index.itemSize, 8u);
    EXPECT_EQ(flex.index.allocatedAmount, 2048u);
    EXPECT_EQ(indexOf(flex), (Entries{{3, 0}, {7, 29}, {UINT32_MAX, 41}}));
}

TEST(memBuildFlexIndex, theFirstItemCountsWhateverItsId)
{
    for (const std::uint32_t id : {0u, UINT32_MAX}) {
        Flex flex(Items{{id, 1, "abc"}});
        EXPECT_EQ(memBuildFlexIndex(&flex), 0);
        EXPECT_EQ(indexOf(flex), (Entries{{id, 0}}));
        EXPECT_TRUE(isFound(flex, id, 0));
    }
}

TEST(memBuildFlexIndex, overAnEmptyArrayCountsAsNoIndex)
{
    Flex flex;
    EXPECT_EQ(memBuildFlexIndex(&flex), 0);
    EXPECT_NE(flex.index.data, nullptr);
    EXPECT_FALSE(memHasFlexIndex(&flex));
    EXPECT_EQ(memRemoveFlexIndex(&flex), kMemErrNotFound);
    EXPECT_NE(flex.index.data, nullptr);
    EXPECT_EQ(memBuildFlexIndex(&flex), 0);
}

TEST(memBuildFlexIndex, has2048EntriesForAsManyIds)
{
    Flex flex(manyIDs(2048, 10, 3));
    EXPECT_EQ(memBuildFlexIndex(&flex), 0);
    EXPECT_EQ(flex.index.itemCount, 2048u);
    EXPECT_EQ(flex.index.allocatedAmount, 2048u);
    EXPECT_EQ(indexOf(flex).back(), (test::IndexEntry{10 + 2047 * 3, 2047 * 13}));
}

TEST(memBuildFlexIndex, fromTheNextIdOnEntriesAreAStepApart)
{
    Flex flex(manyIDs(2049, 10, 1));
    EXPECT_EQ(memBuildFlexIndex(&flex), 0);
    ASSERT_EQ(flex.index.itemCount, 1025u);
    EXPECT_EQ(indexOf(flex)[0], (test::IndexEntry{10, 0}));
    EXPECT_EQ(indexOf(flex)[1], (test::IndexEntry{12, 26}));
    for (std::uint32_t i = 0; i < 2049; ++i) ASSERT_TRUE(isFound(flex, 10 + i, i * 13)) << i;
    EXPECT_FALSE(isFound(flex, 9, 0));
    EXPECT_FALSE(isFound(flex, 10 + 2049, 0));
}

TEST(memBuildFlexIndex, sparseEntriesGrowBy40Beyond2048)
{
    // The step is 2 and the IDs lie that far apart, so every ID has its entry.
    Flex flex(manyIDs(2049, 0, 2));
    EXPECT_EQ(memBuildFlexIndex(&flex), 0);
    EXPECT_EQ(flex.index.itemCount, 2049u);
    EXPECT_EQ(flex.index.allocatedAmount, 2088u);
}

TEST(memBuildFlexIndex, stepGrowsWithTheNumberOfIds)
{
    Flex flex(manyIDs(4096, 0, 1));
    EXPECT_EQ(memBuildFlexIndex(&flex), 0);
    EXPECT_EQ(indexOf(flex)[1], (test::IndexEntry{3, 39}));
    for (std::uint32_t i = 0; i < 4096; ++i) ASSERT_TRUE(isFound(flex, i, i * 13)) << i;
}

TEST(memBuildFlexIndex, theStepDoesNotWrapAtTheLargestIds)
{
    Items items = manyIDs(2048, 0, 1);
    items.push_back({UINT32_MAX, 1, "x"});
    items.push_back({UINT32_MAX, 2, "x"});
    items.push_back({UINT32_MAX, 3, "x"});
    Flex flex(items);
    EXPECT_EQ(memBuildFlexIndex(&flex), 0);
    EXPECT_EQ(indexOf(flex).back(), (test::IndexEntry{UINT32_MAX, 2048 * 13}));
    EXPECT_EQ(flex.index.itemCount, 1025u);
}

TEST(memBuildFlexIndex, replacesTheIndexThatIsThere)
{
    Flex flex(manyIDs(3, 0, 1));
    ASSERT_EQ(memBuildFlexIndex(&flex), 0);
    ASSERT_EQ(memBuildFlexIndex(&flex), 0);
    EXPECT_EQ(flex.index.itemCount, 3u);
}

TEST(memBuildFlexIndex, withoutMemoryThereIsNoIndex)
{
    Flex flex(manyIDs(3, 0, 1));
    ASSERT_EQ(memBuildFlexIndex(&flex), 0);
    const FailingAllocation failure(1);
    EXPECT_EQ(memBuildFlexIndex(&flex), kMemErrNoMemory);
    EXPECT_FALSE(memHasFlexIndex(&flex));
    EXPECT_EQ(flex.index.itemSize, 0u);
    EXPECT_EQ(flex.index.data, nullptr);
    EXPECT_TRUE(isFound(flex, 2, 26));
}

TEST(memBuildFlexIndex, entriesWithoutMemoryAreLeftOutAndLookupsStillSucceed)
{
    Flex flex(manyIDs(2100, 0, 2));
    const FailingAllocation failure(2);
    EXPECT_EQ(memBuildFlexIndex(&flex), 0);
    EXPECT_TRUE(failure.hasHappened());
    EXPECT_EQ(flex.index.itemCount, 2099u);
    for (std::uint32_t i = 0; i < 2100; ++i) ASSERT_TRUE(isFound(flex, i * 2, i * 13)) << i;
}

TEST(memBuildFlexIndexNumItems, trustsTheNumber)
{
    const struct {
        std::uint32_t number, expectedEntries;
    } rows[] = {{0, 100}, {100, 100}, {2048, 100}, {2049, 50}, {4096, 34}, {UINT32_MAX, 1}};
    for (const auto& row : rows) {
        Flex flex(manyIDs(100, 5, 1));
        EXPECT_EQ(memBuildFlexIndexNumItems(&flex, row.number), 0);
        EXPECT_EQ(flex.index.itemCount, row.expectedEntries) << row.number;
        for (std::uint32_t i = 0; i < 100; ++i) ASSERT_TRUE(isFound(flex, 5 + i, i * 13));
    }
    Flex flex(manyIDs(2100, 0, 1));
    EXPECT_EQ(memBuildFlexIndexNumItems(&flex, 1), 0);
    EXPECT_EQ(flex.index.itemCount, 2100u);
    EXPECT_EQ(flex.index.allocatedAmount, 2128u);
}

TEST(memRemoveFlexIndex, keepsTheItemSize)
{
    Flex flex(manyIDs(3, 0, 1));
    EXPECT_EQ(memRemoveFlexIndex(&flex), kMemErrNotFound);
    ASSERT_EQ(memBuildFlexIndex(&flex), 0);
    EXPECT_EQ(memRemoveFlexIndex(&flex), 0);
    EXPECT_EQ(flex.index.itemSize, 8u);
    EXPECT_EQ(flex.index.allocatedAmount, 0u);
    EXPECT_EQ(flex.index.itemCount, 0u);
    EXPECT_EQ(flex.index.data, nullptr);
    EXPECT_EQ(memRemoveFlexIndex(&flex), kMemErrNotFound);
}

TEST(memHasFlexIndex, needsAmountBlockAndCount)
{
    std::uint8_t block[8];
    const struct {
        DynArray index;
        bool expected;
    } rows[] = {
        {{8, 1, 1, block}, true},
        {{8, 0, 1, block}, false},
        {{8, 1, 0, block}, false},
        {{8, 1, 1, nullptr}, false},
    };
    for (const auto& row : rows) {
        const FlexDynArray flex{0, 0, nullptr, row.index};
        EXPECT_EQ(memHasFlexIndex(&flex), row.expected);
    }
}
