// Long random runs of calls on variable-item arrays against a plain model of what they must be
// after each call: items, amounts, bytes and index.

#include "tests/lib/containers/flex_model.h"
#include "lib/containers/flex_dyn_array.h"
#include "lib/containers/flex_index.h"
#include "lib/containers/flex_lookup.h"
#include "lib/containers/flex_runs.h"
#include "tests/lib/containers/containers_under_test.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

using namespace pinorama;

namespace {
using Items = std::vector<test::FlexItem>;

class FlexRun {
public:
    FlexRun(std::uint32_t ids, std::uint32_t seed) : ids_(ids), random_(seed) {}

    void step()
    {
        const bool planned = below(10) == 0;
        const test::FailingAllocation failure(planned ? 1 + below(latestFailure_) : 0);
        const test::FlexModel before = model_;
        Outcome outcome = callOne();
        if (planned && failure.hasHappened() && !outcome.indexOnly) {
            outcome.expected = kMemErrNoMemory;
            model_ = before;
        }
        ASSERT_EQ(outcome.status, outcome.expected) << outcome.name;
        compare(outcome.name);
    }

    // Fills the array with `count` IDs of one item each.
    void fill(std::uint32_t count, std::uint32_t apart)
    {
        for (std::uint32_t i = 0; i < count; ++i) {
            const std::string data(1 + below(3), 'x');
            ASSERT_EQ(memAddFlexDataAtEnd(&flex_, i * apart, 1,
                                          static_cast<std::uint32_t>(data.size()), data.data()),
                      0);
            model_.items.push_back({i * apart, 1, data});
        }
        model_.allocated = flex_.allocatedBytes;
        ids_ = count * apart;
        latestFailure_ = 1;  // a later one would leave single entries out of a growing index
    }

private:
    struct Outcome {
        const char* name;
        std::int16_t status;
        std::int16_t expected;
        bool indexOnly = false;  // only the index was short of memory: the call itself stands
    };

    std::uint32_t below(std::uint32_t limit)
    {
        return static_cast<std::uint32_t>(random_() % limit);
    }

    std::string newData()
    {
        std::string data(below(12) == 0 ? below(6000) : below(20), '\0');
        for (char& byte : data) byte = static_cast<char>(random_());
        return data;
    }

    Outcome callOne()
    {
        switch (below(16)) {
        case 0: return buildIndex();
        case 1: return below(3) == 0 ? removeIndex() : change();
        case 2: return below(3) == 0 ? deleteID() : change();
        case 3: return shrink();
        case 4: return below(4) == 0 ? appendArray() : change();
        case 5: return extract();
        case 6: return replace();
        case 7: return below(60) == 0 ? deleteAll() : addAtEnd();
        case 8: return below(20) == 0 ? adjust() : addAtEnd();
        case 9: return resize();
        default: return change();
        }
    }

    // A change of IDs or locations: an index that is in use is rebuilt, unless there is no memory
    // for it. Called when the array itself has been changed.
    void indexRebuilt()
    {
        if (!model_.hasIndexBlock || model_.index.empty()) return;
        takeIndex(baseAllocationHasFailed());
    }

    void takeIndex(bool failed)
    {
        if (failed && flex_.index.data == nullptr) {
            model_.dropIndex();
        } else {
            model_.buildIndex();
        }
    }

    Outcome addAtEnd()
    {
        const std::uint32_t id = below(ids_);
        const std::uint32_t type = below(4);
        const std::string data = newData();
        const std::uint64_t needed = model_.usedBytes() + data.size() + 12;
        if (model_.allocated <= needed) {
            model_.allocated +=
                std::max<std::uint64_t>(model_.allocated * 12 / 100, data.size() * 2 + 24);
        }
        model_.items.push_back({id, type, data});
        return {"add at end",
                memAddFlexDataAtEnd(&flex_, id, type, static_cast<std::uint32_t>(data.size()),
                                    data.data()),
                0};
    }

    Outcome change()
    {
        const std::uint32_t id = below(ids_);
        const std::uint32_t type = below(4);
        std::string data = newData();
        const void* given = data.data();
        if (!model_.items.empty() && below(6) == 0) {
            // The data of another item, where they lie.
            const std::size_t from = below(static_cast<std::uint32_t>(model_.items.size()));
            std::size_t location = 12;
            for (std::size_t i = 0; i < from; ++i) location += 12 + model_.items[i].data.size();
            data = model_.items[from].data;
            given = flex_.data + location;
        }
        const bool movesItems = model_.change(id, type, data);
        const auto size = static_cast<std::uint32_t>(data.size());
        const std::int16_t status = memChangeFlexData(&flex_, id, type, size, given);
        if (status == 0 && movesItems) indexRebuilt();
        return {"change", status, 0, status == 0};
    }

    Outcome buildIndex()
    {
        const std::int16_t status = memBuildFlexIndex(&flex_);
        const bool failed = status == kMemErrNoMemory;
        takeIndex(failed);
        return {"build index", status, static_cast<std::int16_t>(failed ? kMemErrNoMemory : 0),
                true};
    }

    Outcome removeIndex()
    {
        const std::int16_t status = memRemoveFlexIndex(&flex_);
        if (model_.index.empty()) return {"remove no index", status, kMemErrNotFound};
        model_.dropIndex();
        return {"remove index", status, 0};
    }

    Outcome deleteID()
    {
        const std::uint32_t id = below(ids_);
        const std::int16_t status = memDeleteAllFlexData(&flex_, id);
        const std::size_t first = model_.firstOf(id);
        if (first == model_.items.size()) return {"delete no ID", status, kMemErrNotFound};
        model_.items.erase(
            model_.items.begin() + static_cast<std::ptrdiff_t>(first),
            model_.items.begin() + static_cast<std::ptrdiff_t>(model_.endOfRun(first)));
        indexRebuilt();
        return {"delete ID", status, 0, true};
    }

    Outcome shrink()
    {
        model_.allocated = model_.usedBytes();
        return {"shrink", memShrinkFlexToUsed(&flex_), 0};
    }

    Outcome resize()
    {
        model_.allocated = model_.usedBytes() + below(300);
        return {"resize",
                m2ResizeFlexDynArray(&flex_, static_cast<std::uint32_t>(model_.allocated)), 0};
    }

    Outcome appendArray()
    {
        Items added;
        for (std::uint32_t i = below(4); i > 0; --i) {
            const std::uint32_t id = below(ids_);
            added.push_back({id, below(4), newData()});
        }
        const std::string bytes = test::bytesOf(added);
        baseFailAllocation(0);
        test::Flex source(bytes);
        const std::int16_t status = memAppendFlexDynArray(&source, &flex_);
        EXPECT_EQ(source.data, nullptr);
        if (!added.empty()) {
            if (model_.allocated <= model_.usedBytes() + bytes.size())
                model_.allocated += bytes.size();
            model_.items.insert(model_.items.end(), added.begin(), added.end());
            indexRebuilt();
        }
        return {"append array", status, 0};
    }

    Outcome extract()
    {
        test::Flex dest;
        const std::uint32_t id = below(ids_);
        const std::int16_t status = memExtractFlexItemsForSpecificID(&flex_, id, &dest);
        const std::size_t first = model_.firstOf(id);
        if (first == model_.items.size()) return {"extract no ID", status, kMemErrNotFound};
        if (status != 0) return {"extract", status, 0};
        const Items expected(
            model_.items.begin() + static_cast<std::ptrdiff_t>(first),
            model_.items.begin() + static_cast<std::ptrdiff_t>(model_.endOfRun(first)));
        EXPECT_EQ(test::itemsOf(dest), expected);
        EXPECT_EQ(dest.allocatedBytes, dest.usedBytes);
        return {"extract", status, 0};
    }

    Outcome replace()
    {
        baseFailAllocation(0);
        Items given;
        for (std::uint32_t i = below(4); i > 0; --i) {
            const std::uint32_t id = below(ids_);
            given.push_back({id, below(4), newData()});
        }
        const test::Flex source(given);
        const std::uint32_t id = below(ids_);
        for (const test::FlexItem& item : given) {
            if (model_.change(id, item.type, item.data)) indexRebuilt();
        }
        return {"replace", memReplaceFlexItemsForSpecificID(&source, &flex_, id), 0};
    }

    Outcome adjust()
    {
        const std::uint32_t id = below(ids_);
        const std::int16_t status = memAdjustIDinFlexDynArray(&flex_, id);
        for (test::FlexItem& item : model_.items) item.id = id;
        indexRebuilt();
        return {"adjust", status, 0, true};
    }

    Outcome deleteAll()
    {
        model_.items.clear();
        if (!model_.index.empty()) model_.dropIndex();
        return {"delete all", memDeleteAllFlexItems(&flex_), 0};
    }

    void compare(const char* name)
    {
        ASSERT_EQ(flex_.allocatedBytes, model_.allocated) << name;
        ASSERT_EQ(test::usedBytesOf(flex_), test::bytesOf(model_.items)) << name;
        ASSERT_EQ(flex_.index.data != nullptr, model_.hasIndexBlock) << name;
        ASSERT_EQ(flex_.index.allocatedAmount, model_.indexAllocated) << name;
        ASSERT_EQ(test::indexOf(flex_), model_.index) << name;
        ASSERT_EQ(memHasFlexIndex(&flex_), !model_.index.empty()) << name;
        if (model_.isSorted()) compareLookup(name);
    }

    // In a sorted array every item is found, except one without data in last place; through an
    // index that add-at-end has left behind as well.
    void compareLookup(const char* name)
    {
        const std::uint32_t id = below(ids_ + 1);
        const std::uint32_t type = below(4);
        const std::uint32_t expected = model_.locationOf(id, type);
        std::uint32_t found = 1;
        const std::int16_t status = m2LookupFlexDataOffset(&flex_, id, type, &found);
        ASSERT_EQ(status, expected == UINT32_MAX ? kMemErrNotFound : 0) << name;
        ASSERT_EQ(found, expected) << name;
    }

    std::uint32_t ids_;
    std::uint32_t latestFailure_ = 2;
    std::mt19937 random_;
    test::FlexModel model_;
    test::Flex flex_;
};

void runSteps(FlexRun& run, int steps)
{
    for (int i = 0; i < steps; ++i) {
        run.step();
        if (testing::Test::HasFailure()) FAIL() << "in step " << i;
    }
}
}  // namespace

TEST(FlexDynArray, behavesLikeItsModelOverLongRunsOfCalls)
{
    for (const std::uint32_t ids : {1u, 8u, 40u}) {
        for (std::uint32_t seed = 1; seed <= 6; ++seed) {
            SCOPED_TRACE(testing::Message() << ids << " IDs, seed " << seed);
            FlexRun run(ids, seed);
            runSteps(run, 1200);
        }
    }
}

TEST(FlexDynArray, behavesLikeItsModelAroundTheSizeOfTheIndex)
{
    for (const std::uint32_t count : {2040u, 2060u, 4200u}) {
        for (const std::uint32_t apart : {1u, 2u, 5u}) {
            SCOPED_TRACE(testing::Message() << count << " IDs, " << apart << " apart");
            FlexRun run(1, count + apart);
            run.fill(count, apart);
            runSteps(run, 60);
        }
    }
}
