// Items of a variable-item array that are inserted and replaced.

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
std::int16_t change(Flex& flex, std::uint32_t id, std::uint32_t type, std::string_view data)
{
    return memChangeFlexData(&flex, id, type, static_cast<std::uint32_t>(data.size()), data.data());
}
}  // namespace

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
