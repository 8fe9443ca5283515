#include "lib/containers/dyn_array_search.h"

#include "tests/lib/containers/containers_under_test.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <random>

using namespace pinorama;

using test::Array;
using test::ArrayOf;
using IDs = std::vector<std::uint32_t>;

namespace {
constexpr std::uint32_t kUntouched = 0xabcdef;

struct Visits {
    std::vector<std::uint32_t> indexes;
    std::vector<std::uint32_t> ids;
    std::uint32_t stopAt;
};

bool visit(std::uint32_t index, void* item, void* refCon1, void* refCon2)
{
    auto* visits = static_cast<Visits*>(refCon1);
    EXPECT_EQ(refCon2, &visits->stopAt);
    visits->indexes.push_back(index);
    visits->ids.push_back(*static_cast<std::uint32_t*>(item));
    return index != visits->stopAt;
}

struct Found {
    std::int16_t status;
    std::uint32_t index;
};

bool operator==(const Found& a, const Found& b)
{
    return a.status == b.status && a.index == b.index;
}

std::ostream& operator<<(std::ostream& stream, const Found& found)
{
    return stream << found.status << " at " << found.index;
}

Found find(const DynArray& array, std::uint32_t id)
{
    Found found{0, kUntouched};
    found.status = memGetItemIndexFromID(&array, id, &found.index);
    return found;
}

Found find64(const DynArray& array, std::uint64_t id)
{
    Found found{0, kUntouched};
    found.status = memUInt64GetIndexFromSortedID(&array, id, &found.index);
    return found;
}

// The search in signed numbers and without early ends, as plainly as it can be written.
template <typename ID>
Found expectedFind(const std::vector<ID>& ids, ID id)
{
    if (ids.empty()) return {-1, kUntouched};
    std::int64_t low = 0;
    std::int64_t high = static_cast<std::int64_t>(ids.size()) - 1;
    for (;;) {
        const std::int64_t middle = high > low ? low + (high - low) / 2 : low;
        const ID found = ids[static_cast<std::size_t>(middle)];
        if (found == id) return {0, static_cast<std::uint32_t>(middle)};
        if (high <= low)
            return {kMemErrNotFound, static_cast<std::uint32_t>(low > 0 ? low - 1 : 0)};
        if (found < id) {
            low = middle + 1;
        } else {
            high = middle > 0 ? middle - 1 : 0;
        }
    }
}
}  // namespace

TEST(memWalkDynArray, visitsItemsInOrderUntilTheFirstFalse)
{
    const ArrayOf<std::uint32_t> array({10, 20, 30});
    const struct {
        const char* name;
        std::uint32_t stopAt;
        IDs indexes, ids;
    } rows[] = {
        {"all", 99, {0, 1, 2}, {10, 20, 30}},
        {"stopped in the middle", 1, {0, 1}, {10, 20}},
        {"stopped at once", 0, {0}, {10}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        Visits visits{{}, {}, row.stopAt};
        EXPECT_EQ(memWalkDynArray(&array, &visits, &visits.stopAt, visit), 0);
        EXPECT_EQ(visits.indexes, row.indexes);
        EXPECT_EQ(visits.ids, row.ids);
    }
}

TEST(memWalkDynArray, givesMinusOneForAnEmptyArray)
{
    const Array array(4, 3);
    EXPECT_EQ(memWalkDynArray(&array, nullptr, nullptr, visit), -1);
}

TEST(memGetItemByUnsortedID, givesTheFirstMatch)
{
    const ArrayOf<std::uint32_t> array({30, 10, 20, 10, UINT32_MAX});
    void* item = nullptr;
    EXPECT_EQ(memGetItemByUnsortedID(&array, 10, &item), 0);
    EXPECT_EQ(item, array.data + 4);
    EXPECT_EQ(memGetItemByUnsortedID(&array, UINT32_MAX, &item), 0);
    EXPECT_EQ(item, array.data + 16);
    EXPECT_EQ(memGetItemByUnsortedID(&array, 11, &item), kMemErrNotFound);
    EXPECT_EQ(item, nullptr);
}

TEST(memGetItemByUnsortedID, leavesThePointerForAnEmptyArray)
{
    const Array array(4, 3);
    int here = 0;
    void* item = &here;
    EXPECT_EQ(memGetItemByUnsortedID(&array, 10, &item), -1);
    EXPECT_EQ(item, &here);
}

TEST(memGetItemIndexFromID, missingIdGivesNotFoundAndAnIndexAtOrBeforeItsPlace)
{
    const struct {
        IDs ids;
        std::uint32_t id;
        Found expected;
    } rows[] = {
        {{}, 10, {-1, kUntouched}},
        {{10}, 10, {0, 0}},
        {{10}, 9, {kMemErrNotFound, 0}},
        {{10}, 11, {kMemErrNotFound, 0}},
        {{10, 20}, 15, {kMemErrNotFound, 0}},
        {{10, 20}, 5, {kMemErrNotFound, 0}},
        {{10, 20}, 30, {kMemErrNotFound, 0}},
        {{10, 20}, 20, {0, 1}},
        {{10, 20, 30, 40}, 35, {kMemErrNotFound, 2}},
        {{10, 20, 30, 40}, 0, {kMemErrNotFound, 0}},
        {{10, 20, 30, 40}, 45, {kMemErrNotFound, 2}},
    };
    for (const auto& row : rows) {
        const ArrayOf<std::uint32_t> array(row.ids);
        EXPECT_EQ(find(array, row.id), row.expected) << row.id;
    }
}

TEST(memGetItemIndexFromID, comparesUnsigned)
{
    const ArrayOf<std::uint32_t> array({1, 0x7fffffff, 0x80000000, UINT32_MAX});
    EXPECT_EQ(find(array, 0x80000000), (Found{0, 2}));
    EXPECT_EQ(find(array, UINT32_MAX), (Found{0, 3}));
    EXPECT_EQ(find(array, 0), (Found{kMemErrNotFound, 0}));
}

TEST(memGetItemIndexFromID, equalIdsGiveTheFirstThatTheBinarySearchMeets)
{
    EXPECT_EQ(find(ArrayOf<std::uint32_t>({7, 7, 7, 7}), 7), (Found{0, 1}));
    EXPECT_EQ(find(ArrayOf<std::uint32_t>({7, 7, 7, 7, 7}), 7), (Found{0, 2}));
    EXPECT_EQ(find(ArrayOf<std::uint32_t>({1, 2, 3, 7, 7, 7}), 7), (Found{0, 4}));
}

TEST(memGetItemIndexFromID, followsTheBinarySearchOnEveryArray)
{
    std::mt19937 random(61);
    for (int round = 0; round < 2000; ++round) {
        IDs ids(random() % 70);
        for (std::uint32_t& id : ids) id = random() % 100;
        if (round % 4 != 0) std::sort(ids.begin(), ids.end());  // unsorted ones must end as well
        const ArrayOf<std::uint32_t> array(ids);
        for (std::uint32_t id = 0; id < 101; id += 1 + random() % 7) {
            ASSERT_EQ(find(array, id), expectedFind(ids, id)) << "round " << round << " id " << id;
        }
    }
}

TEST(memGetItemBySortedID, givesTheItemOrNull)
{
    const ArrayOf<std::uint32_t> array({10, 20, 30});
    void* item = nullptr;
    EXPECT_EQ(memGetItemBySortedID(&array, 30, &item), 0);
    EXPECT_EQ(item, array.data + 8);
    EXPECT_EQ(memGetItemBySortedID(&array, 31, &item), kMemErrNotFound);
    EXPECT_EQ(item, nullptr);
}

TEST(memGetItemBySortedID, nullsThePointerForAnEmptyArrayToo)
{
    const Array array(4, 3);
    int here = 0;
    void* item = &here;
    EXPECT_EQ(memGetItemBySortedID(&array, 10, &item), -1);
    EXPECT_EQ(item, nullptr);
}

TEST(memUInt64GetIndexFromSortedID, comparesBothHalves)
{
    const ArrayOf<std::uint64_t> array(
        {5, 0x100000000, 0x100000005, 0x8000000000000000, UINT64_MAX});
    EXPECT_EQ(find64(array, 5), (Found{0, 0}));
    EXPECT_EQ(find64(array, 0x100000005), (Found{0, 2}));
    EXPECT_EQ(find64(array, 0x200000005), (Found{kMemErrNotFound, 2}));
    EXPECT_EQ(find64(array, UINT64_MAX), (Found{0, 4}));
    EXPECT_EQ(find64(array, 0), (Found{kMemErrNotFound, 0}));
    EXPECT_EQ(find64(Array(8, 1), 5), (Found{-1, kUntouched}));
}

TEST(memUInt64GetIndexFromSortedID, followsTheBinarySearchOnEveryArray)
{
    std::mt19937_64 random(62);
    for (int round = 0; round < 1000; ++round) {
        std::vector<std::uint64_t> ids(random() % 50);
        for (std::uint64_t& id : ids) id = (random() % 5) << 32 | random() % 9;
        std::sort(ids.begin(), ids.end());
        const ArrayOf<std::uint64_t> array(ids);
        for (int look = 0; look < 20; ++look) {
            const std::uint64_t id = (random() % 6) << 32 | random() % 10;
            ASSERT_EQ(find64(array, id), expectedFind(ids, id));
        }
    }
}

TEST(memUInt64SortedArrayHasID, isTrueForAMatchOnly)
{
    const ArrayOf<std::uint64_t> array({5, 0x100000005});
    EXPECT_TRUE(memUInt64SortedArrayHasID(&array, 0x100000005));
    EXPECT_FALSE(memUInt64SortedArrayHasID(&array, 0x200000005));
    const Array empty(8, 2);
    EXPECT_FALSE(memUInt64SortedArrayHasID(&empty, 0));
}
