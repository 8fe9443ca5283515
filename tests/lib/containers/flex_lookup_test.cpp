#include "lib/containers/flex_lookup.h"

#include "lib/containers/flex_index.h"
#include "tests/lib/containers/containers_under_test.h"

#include <gtest/gtest.h>

#include <random>
#include <utility>

using namespace pinorama;

using test::Flex;
using test::headerBytes;
using Items = std::vector<test::FlexItem>;

namespace {
constexpr std::uint32_t kNowhere = UINT32_MAX;

struct Visit {
    Items items;
    std::size_t stopAfter = SIZE_MAX;
    bool touchesData = true;
};

bool visit(std::uint32_t id, std::uint32_t type, std::uint32_t size, void* data, void* refCon)
{
    auto* visits = static_cast<Visit*>(refCon);
    const std::string bytes =
        visits->touchesData ? std::string(static_cast<char*>(data), size) : std::string();
    visits->items.push_back({id, type, bytes});
    return visits->items.size() < visits->stopAfter;
}

void expectLookup(const Flex& flex, std::uint32_t id, std::uint32_t type, std::int16_t status,
                  std::uint32_t location)
{
    std::uint32_t found = 5;
    EXPECT_EQ(m2LookupFlexDataOffset(&flex, id, type, &found), status) << id << " " << type;
    EXPECT_EQ(found, location) << id << " " << type;
}
}  // namespace

TEST(m2LookupFlexDataOffset, findsIdAndTypeWithAndWithoutIndex)
{
    Flex flex(Items{{3, 1, "abc"}, {3, 2, "de"}, {7, 0, "f"}, {9, 9, "g"}});
    for (const bool indexed : {false, true}) {
        if (indexed) {
            ASSERT_EQ(memBuildFlexIndex(&flex), 0);
        }
        expectLookup(flex, 3, 1, 0, 0);
        expectLookup(flex, 3, 2, 0, 15);
        expectLookup(flex, 7, 0, 0, 29);
        expectLookup(flex, 9, 9, 0, 42);
        expectLookup(flex, 3, 3, kMemErrNotFound, kNowhere);
        expectLookup(flex, 1, 1, kMemErrNotFound, kNowhere);
        expectLookup(flex, 5, 1, kMemErrNotFound, kNowhere);
        expectLookup(flex, 9, 1, kMemErrNotFound, kNowhere);
        expectLookup(flex, 10, 1, kMemErrNotFound, kNowhere);
    }
}

TEST(m2LookupFlexDataOffset, emptyArrayHasNothing)
{
    expectLookup(Flex(), 1, 1, kMemErrNotFound, kNowhere);
    Flex flex;
    ASSERT_EQ(memNewFlexDynArray(&flex, 100), 0);
    expectLookup(flex, 1, 1, kMemErrNotFound, kNowhere);
}

TEST(m2LookupFlexDataOffset, recordWithoutAllocatedBytesHasNothing)
{
    Flex flex(Items{{1, 1, "abc"}});
    const std::uint32_t allocated = std::exchange(flex.allocatedBytes, 0);
    expectLookup(flex, 1, 1, kMemErrNotFound, kNowhere);
    flex.allocatedBytes = allocated;  // for the block to be freed
    expectLookup(flex, 1, 1, 0, 0);
}

TEST(m2LookupFlexDataOffset, stopsAtTheFirstLargerId)
{
    const Flex flex(Items{{3, 1, "a"}, {7, 1, "b"}, {5, 1, "c"}});
    expectLookup(flex, 5, 1, kMemErrNotFound, kNowhere);
}

TEST(m2LookupFlexDataOffset, neverFindsAnItemWithoutDataInLastPlace)
{
    for (const bool indexed : {false, true}) {
        Flex sole(Items{{5, 1, ""}});
        Flex last(Items{{3, 1, "abc"}, {5, 1, ""}});
        Flex inFront(Items{{5, 1, ""}, {6, 1, "x"}});
        if (indexed) {
            for (Flex* flex : {&sole, &last, &inFront}) ASSERT_EQ(memBuildFlexIndex(flex), 0);
        }
        expectLookup(sole, 5, 1, kMemErrNotFound, kNowhere);
        expectLookup(last, 5, 1, kMemErrNotFound, kNowhere);
        expectLookup(inFront, 5, 1, 0, 0);
    }
}

TEST(m2LookupFlexDataOffset, aSizeThatWrapsEndsTheSearch)
{
    for (const std::uint32_t size : {UINT32_MAX, UINT32_MAX - 11, UINT32_MAX - 23, 14u}) {
        const Flex flex(headerBytes(1, size, 1) + headerBytes(2, 1, 1) + "x");
        expectLookup(flex, 2, 1, kMemErrNotFound, kNowhere);
    }
}

TEST(m2LookupFlexDataOffset, anIndexThatPointsOutsideFindsNothing)
{
    Flex flex(Items{{1, 1, "abc"}, {2, 1, "def"}});
    ASSERT_EQ(memBuildFlexIndex(&flex), 0);
    for (const std::uint8_t byte : {std::uint8_t{19}, std::uint8_t{0xff}}) {
        for (int i = 12; i < 16; ++i) flex.index.data[i] = byte;  // the location of ID 2
        expectLookup(flex, 2, 1, kMemErrNotFound, kNowhere);
    }
}

TEST(memGetFlexData, copiesWhatFitsAndReportsTheFullSize)
{
    const Flex flex(Items{{3, 1, "abcdef"}, {4, 1, ""}, {5, 1, "x"}});
    const struct {
        std::uint32_t bufferSize;
        const char* expected;
    } rows[] = {{0, "........"}, {4, "abcd...."}, {6, "abcdef.."}, {8, "abcdef.."}};
    for (const auto& row : rows) {
        std::string buffer = "........";
        std::uint32_t size = 0;
        EXPECT_EQ(memGetFlexData(&flex, 3, 1, buffer.data(), &size, row.bufferSize), 0);
        EXPECT_EQ(size, 6u);
        EXPECT_EQ(buffer, row.expected);
    }
    std::uint32_t size = 5;
    EXPECT_EQ(memGetFlexData(&flex, 3, 1, nullptr, &size, 0), 0);
    EXPECT_EQ(size, 6u);
    EXPECT_EQ(memGetFlexData(&flex, 4, 1, nullptr, &size, 10), 0);
    EXPECT_EQ(size, 0u);
}

TEST(memGetFlexData, passesAFailedLookupOn)
{
    const Flex flex(Items{{3, 1, "abcdef"}});
    char buffer = '.';
    std::uint32_t size = 77;
    EXPECT_EQ(memGetFlexData(&flex, 3, 2, &buffer, &size, 1), kMemErrNotFound);
    EXPECT_EQ(buffer, '.');
    EXPECT_EQ(size, 77u);
}

TEST(memGetFlexData, dataThatRunPastTheUsedBytesAreNotCopied)
{
    const Flex flex(headerBytes(3, 4, 1) + "abc");
    std::string buffer = "....";
    std::uint32_t size = 77;
    EXPECT_EQ(memGetFlexData(&flex, 3, 1, buffer.data(), &size, 4), kMemErrBadPosition);
    EXPECT_EQ(buffer, "....");
}

TEST(memGetFlexDataInfo, givesSizeAndAddressInTheBlock)
{
    const Flex flex(Items{{2, 1, "x"}, {3, 1, "abc"}});
    std::uint32_t size = 0;
    void* data = nullptr;
    EXPECT_EQ(memGetFlexDataInfo(&flex, 3, 1, &size, &data), 0);
    EXPECT_EQ(size, 3u);
    EXPECT_EQ(data, flex.data + 25);
    size = 0;
    EXPECT_EQ(memGetFlexDataInfo(&flex, 3, 1, &size, nullptr), 0);
    EXPECT_EQ(size, 3u);
    EXPECT_EQ(memGetFlexDataInfo(&flex, 4, 1, &size, &data), kMemErrNotFound);
    const Flex empty;
    EXPECT_EQ(memGetFlexDataInfo(&empty, 3, 1, &size, &data), kMemErrNotFound);
}

TEST(memGetFlexDataInfo, doesNotReturnDataThatRunPastTheUsedBytes)
{
    const Flex flex(headerBytes(3, 4, 1) + "abc");
    std::uint32_t size = 77;
    void* data = nullptr;
    EXPECT_EQ(memGetFlexDataInfo(&flex, 3, 1, &size, &data), kMemErrBadPosition);
    EXPECT_EQ(data, nullptr);
}

TEST(memWalkFlexDynArray, visitsItemsInOrderUntilTheFirstFalse)
{
    const Items items{{3, 1, "abc"}, {3, 2, ""}, {1, 1, "x"}};
    const Flex flex(items);
    Visit all;
    EXPECT_EQ(memWalkFlexDynArray(&flex, &all, visit), 0);
    EXPECT_EQ(all.items, items);
    Visit two;
    two.stopAfter = 2;
    EXPECT_EQ(memWalkFlexDynArray(&flex, &two, visit), 0);
    EXPECT_EQ(two.items, (Items{items[0], items[1]}));
    const Flex empty;
    EXPECT_EQ(memWalkFlexDynArray(&empty, nullptr, visit), 0);
}

TEST(memWalkFlexDynArray, doesNotCountTheHeaderWhenItLooksForOverruns)
{
    const std::string rest(8, 'x');
    const struct {
        const char* name;
        std::uint32_t size;
        std::int16_t status;
        std::size_t visited;
    } rows[] = {
        {"fits", 8, 0, 2},
        {"location + size at the end: 12 bytes too long", 20, 0, 2},
        {"one more", 21, kMemErrBadPosition, 1},
        {"wraps", UINT32_MAX, kMemErrBadPosition, 1},
        {"wraps to the next item", UINT32_MAX - 11, kMemErrBadPosition, 1},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const Flex flex(test::bytesOf({{1, 1, "a"}}) + headerBytes(2, row.size, 1) + rest);
        Visit visits;
        visits.touchesData = false;
        EXPECT_EQ(memWalkFlexDynArray(&flex, &visits, visit), row.status);
        EXPECT_EQ(visits.items.size(), row.visited);
    }
}

TEST(memWalkFlexDynArray, doesNotLookPastTheItemThatStopsIt)
{
    const Flex flex(test::bytesOf({{1, 1, "a"}}) + headerBytes(2, UINT32_MAX, 1));
    Visit one;
    one.stopAfter = 1;
    EXPECT_EQ(memWalkFlexDynArray(&flex, &one, visit), 0);
    EXPECT_EQ(one.items, (Items{{1, 1, "a"}}));
}

TEST(memWalkFlexDynArray, ignoresLessThanAHeaderAtTheEnd)
{
    const Flex flex(test::bytesOf({{1, 1, "a"}}) + std::string(11, '\xff'));
    Visit visits;
    EXPECT_EQ(memWalkFlexDynArray(&flex, &visits, visit), 0);
    EXPECT_EQ(visits.items.size(), 1u);
    EXPECT_EQ(memVerifyFlexDynArray(&flex), 0);
}

TEST(memVerifyFlexDynArray, reportsTheFirstFault)
{
    const struct {
        const char* name;
        std::string bytes;
        std::int16_t expected;
    } rows[] = {
        {"empty", "", 0},
        {"sound", test::bytesOf({{1, 1, "a"}, {1, 2, ""}, {2, 1, "b"}}), 0},
        {"unsorted is not looked for", test::bytesOf({{2, 1, "a"}, {1, 1, "b"}}), 0},
        {"equal pair starting a run", test::bytesOf({{5, 7, "a"}, {5, 7, "b"}}), -405},
        {"equal pair within a run", test::bytesOf({{5, 6, "a"}, {5, 7, "b"}, {5, 7, "c"}}), -405},
        {"equal pair that is not adjacent", test::bytesOf({{5, 7, "a"}, {5, 6, "b"}, {5, 7, "c"}}),
         0},
        {"type 0 as second of a run", test::bytesOf({{5, 7, "a"}, {5, 0, "b"}}), -405},
        {"type 0 as third of a run", test::bytesOf({{5, 7, "a"}, {5, 8, "b"}, {5, 0, "c"}}), 0},
        {"type 0 as first of a run", test::bytesOf({{5, 0, "a"}, {5, 7, "b"}}), 0},
        {"ID 0 and type 0 in first place", test::bytesOf({{0, 0, "a"}}), -405},
        {"ID 0 and type 0 in second place", test::bytesOf({{0, 1, "a"}, {0, 0, "a"}}), 0},
        {"ID 0 with a type in first place", test::bytesOf({{0, 1, "a"}}), 0},
        {"no type and no data", test::bytesOf({{5, 0, ""}}), -404},
        {"no type and no data in first place with ID 0", test::bytesOf({{0, 0, ""}}), -405},
        {"location + size at the end", headerBytes(5, 13, 1) + "a", 0},
        {"one more", headerBytes(5, 14, 1) + "a", -403},
        {"wraps", headerBytes(5, UINT32_MAX, 1) + "a", -403},
        {"duplicate before overrun", test::bytesOf({{5, 1, "a"}}) + headerBytes(5, 99, 1), -405},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const Flex flex(row.bytes);
        EXPECT_EQ(memVerifyFlexDynArray(&flex), row.expected);
    }
}

TEST(memVerifyFlexDynArray, seesEveryAdjacentEqualPair)
{
    std::mt19937 random(7);
    for (int round = 0; round < 3000; ++round) {
        Items items;
        for (std::uint32_t i = random() % 6; i > 0; --i) {
            const auto id = static_cast<std::uint32_t>(random() % 3);
            const auto type = static_cast<std::uint32_t>(random() % 3);
            items.push_back({id, type, "x"});
        }
        bool hasPair = !items.empty() && items[0].id == 0 && items[0].type == 0;
        for (std::size_t i = 1; i < items.size(); ++i) {
            const auto& last = items[i - 1];
            const bool lastStartsRun = i == 1 ? last.id != 0 : items[i - 2].id != last.id;
            hasPair |= items[i].id == last.id &&
                       (items[i].type == last.type || (lastStartsRun && items[i].type == 0));
        }
        const Flex flex(items);
        ASSERT_EQ(memVerifyFlexDynArray(&flex), hasPair ? -405 : 0);
    }
}
