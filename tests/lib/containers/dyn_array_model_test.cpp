// Long random runs of calls against a plain model of what an array must be after each of them.

#include "lib/containers/dyn_array.h"
#include "lib/containers/dyn_array_search.h"
#include "lib/containers/dyn_array_sort.h"
#include "tests/lib/containers/containers_under_test.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <random>

using namespace pinorama;

namespace {
// What the library keeps in one block: here every item is a string of its own and amounts are
// 64 bits wide.
struct Model {
    std::uint32_t itemSize = 0;
    std::uint64_t allocated = 0;
    std::vector<std::string> items;
};

std::string bytesOf(const Model& model)
{
    std::string bytes;
    for (const std::string& item : model.items) bytes += item;
    return bytes;
}

std::uint32_t idOf(const std::string& item)
{
    std::uint32_t id;
    std::memcpy(&id, item.data(), sizeof id);
    return id;
}

int byID(void* /*context*/, const void* a, const void* b)
{
    std::uint32_t left, right;
    std::memcpy(&left, a, sizeof left);
    std::memcpy(&right, b, sizeof right);
    return left < right ? -1 : left > right ? 1 : 0;
}

bool collect(std::uint32_t index, void* item, void* refCon1, void* refCon2)
{
    auto* bytes = static_cast<std::string*>(refCon1);
    const std::uint32_t itemSize = *static_cast<std::uint32_t*>(refCon2);
    EXPECT_EQ(bytes->size(), std::size_t{index} * itemSize);
    bytes->append(static_cast<char*>(item), itemSize);
    return true;
}

class ArrayRun {
public:
    ArrayRun(std::uint32_t itemSize, std::uint32_t seed) : random_(seed)
    {
        model_.itemSize = itemSize;
        model_.allocated = below(50);
        start_ = memNewDynArray(&array_, itemSize, static_cast<std::uint32_t>(model_.allocated));
    }

    void step()
    {
        ASSERT_EQ(start_, 0);
        // Now and then a request fails: the call then says so and changes nothing.
        const bool planned = below(8) == 0;
        const test::FailingAllocation failure(planned ? 1 + below(2) : 0);
        const Model before = model_;
        Outcome outcome = callOne();
        if (planned && failure.hasHappened()) {
            outcome.expected = kMemErrNoMemory;
            model_ = before;
        }
        ASSERT_EQ(outcome.status, outcome.expected) << outcome.name;
        compare(outcome.name);
    }

private:
    struct Outcome {
        const char* name;
        std::int16_t status;
        std::int16_t expected;
    };

    std::uint32_t below(std::uint32_t limit)
    {
        return static_cast<std::uint32_t>(random_() % limit);
    }
    std::uint32_t count() const { return static_cast<std::uint32_t>(model_.items.size()); }
    std::uint32_t anyIndex() { return below(count() + 3); }

    std::string newItem()
    {
        std::string item(model_.itemSize, '\0');
        for (char& byte : item) byte = static_cast<char>(random_());
        const std::uint32_t id = below(60);  // few enough to meet again
        std::memcpy(item.data(), &id, sizeof id);
        return item;
    }

    Outcome callOne()
    {
        switch (below(13)) {
        case 0:
        case 1:
        case 2: return append();
        case 3: return insertOne();
        case 4: return insertMore();
        case 5: return deleteOne();
        case 6: return deleteLast();
        case 7: return move();
        case 8: return shrink();
        case 9: return resize();
        case 10: return copy();
        case 11: return below(10) == 0 ? sort() : append();
        default: return below(30) == 0 ? deleteAll() : insertOne();
        }
    }

    Outcome append()
    {
        const bool own = count() > 0 && below(4) == 0;
        const std::uint32_t from = own ? below(count()) : 0;
        const std::string item = own ? model_.items[from] : newItem();
        const void* given = own ? array_.data + std::size_t{from} * array_.itemSize
                                : static_cast<const void*>(item.data());
        if (model_.allocated == count()) model_.allocated += 40;
        model_.items.push_back(item);
        return {"append", memAppendItem(&array_, given), 0};
    }

    Outcome insertOne()
    {
        const std::uint32_t index = anyIndex();
        const std::string item = newItem();
        const std::int16_t status = memInsertOneItem(&array_, index, item.data());
        if (index > count()) return {"insert beyond", status, kMemErrBadPosition};
        if (count() >= model_.allocated) model_.allocated += 40;
        model_.items.insert(model_.items.begin() + index, item);
        return {"insert", status, 0};
    }

    Outcome insertMore()
    {
        const std::uint32_t index = anyIndex();
        std::vector<std::string> added(below(6));
        std::string bytes;
        for (std::string& item : added) bytes += item = newItem();
        const void* given = bytes.data();
        if (count() >= added.size() && below(3) == 0) {
            const std::uint32_t from =
                below(count() - static_cast<std::uint32_t>(added.size()) + 1);
            std::copy_n(model_.items.begin() + from, added.size(), added.begin());
            if (array_.data != nullptr) given = array_.data + std::size_t{from} * array_.itemSize;
        }
        const auto n = static_cast<std::uint32_t>(added.size());
        const std::int16_t status = memInsertMoreItems(&array_, index, n, given);
        if (index > count()) return {"insert more beyond", status, kMemErrBadPosition};
        if (model_.allocated <= count() + n) model_.allocated += n + 40;
        model_.items.insert(model_.items.begin() + index, added.begin(), added.end());
        return {"insert more", status, 0};
    }

    Outcome deleteOne()
    {
        const std::uint32_t index = anyIndex();
        const std::int16_t status = memDeleteOneItem(&array_, index);
        if (index >= count()) return {"delete beyond", status, kMemErrNotFound};
        model_.items.erase(model_.items.begin() + index);
        return {"delete", status, 0};
    }

    Outcome deleteLast()
    {
        const std::int16_t status = memDeleteLastItem(&array_);
        if (model_.items.empty()) return {"delete last of none", status, -1};
        model_.items.pop_back();
        return {"delete last", status, 0};
    }

    Outcome deleteAll()
    {
        model_.items.clear();
        return {"delete all", memDeleteAllItems(&array_), 0};
    }

    Outcome move()
    {
        const std::uint32_t from = anyIndex();
        const std::uint32_t to = anyIndex();
        const std::int16_t status = memMoveItemToNewIndex(&array_, from, to);
        if (from == to) return {"move nowhere", status, 0};
        if (from >= count()) return {"move none", status, kMemErrNotFound};
        const std::string item = model_.items[from];
        model_.items.erase(model_.items.begin() + from);
        if (to > count()) return {"move beyond", status, kMemErrBadPosition};
        model_.items.insert(model_.items.begin() + to, item);
        return {"move", status, 0};
    }

    Outcome shrink()
    {
        model_.allocated = count();
        return {"shrink", memShrinkToUsed(&array_), 0};
    }

    Outcome resize()
    {
        model_.allocated = count() + below(100);
        return {"resize", memResizeMemory(&array_, static_cast<std::uint32_t>(model_.allocated)),
                0};
    }

    // Copies the array into another one and compares that one.
    Outcome copy()
    {
        test::Array other;
        if (below(2) == 0) {
            other.itemSize = model_.itemSize;
            const std::string item = newItem();
            if (memAppendItem(&other, item.data()) != 0)
                return {"append to another", kMemErrNoMemory, kMemErrNoMemory};
        }
        const std::uint32_t earlier = other.allocatedAmount;
        const std::int16_t status = memCopyDynArray(&array_, &other);
        if (status == kMemErrNoMemory) return {"copy", status, 0};
        EXPECT_TRUE(memSameData(&other, static_cast<std::uint32_t>(bytesOf(model_).size()),
                                bytesOf(model_).data()));
        if (baseAllocationHasFailed()) {  // a block that could not be made smaller
            EXPECT_EQ(other.allocatedAmount, earlier);
            baseFailAllocation(0);
        } else {
            EXPECT_EQ(other.allocatedAmount, model_.allocated);
        }
        return {"copy", status, 0};
    }

    Outcome sort()
    {
        memQuickSort(&array_, byID);
        std::stable_sort(model_.items.begin(), model_.items.end(),
                         [](const auto& a, const auto& b) { return idOf(a) < idOf(b); });
        // The order of equal IDs is the C library's: compare the IDs, then take its order over.
        for (std::uint32_t i = 0; i < count(); ++i) {
            EXPECT_EQ(memGetItemID(&array_, i), idOf(model_.items[i]));
            EXPECT_EQ(memCopyItemData(&array_, i, model_.items[i].data()), 0);
        }
        return {"sort", 0, 0};
    }

    void compare(const char* name)
    {
        ASSERT_EQ(array_.itemSize, model_.itemSize) << name;
        ASSERT_EQ(array_.allocatedAmount, model_.allocated) << name;
        ASSERT_EQ(array_.itemCount, count()) << name;
        ASSERT_EQ(memValidDynArray(&array_), model_.allocated != 0) << name;
        const std::string bytes = bytesOf(model_);
        ASSERT_TRUE(memSameData(&array_, static_cast<std::uint32_t>(bytes.size()), bytes.data()))
            << name;
        compareSearch(name);
        if (below(20) == 0) compareWalk(bytes);
    }

    void compareSearch(const char* name)
    {
        const std::uint32_t id = below(61);
        void* found = this;
        const std::int16_t status = memGetItemByUnsortedID(&array_, id, &found);
        for (std::uint32_t i = 0; i < count(); ++i) {
            if (idOf(model_.items[i]) != id) continue;
            ASSERT_EQ(status, 0) << name;
            ASSERT_EQ(found, array_.data + std::size_t{i} * array_.itemSize) << name;
            return;
        }
        ASSERT_EQ(status, count() == 0 ? -1 : kMemErrNotFound) << name;
        ASSERT_EQ(found, count() == 0 ? this : nullptr) << name;
    }

    void compareWalk(const std::string& bytes)
    {
        std::string walked;
        ASSERT_EQ(memWalkDynArray(&array_, &walked, &model_.itemSize, collect),
                  count() == 0 ? -1 : 0);
        ASSERT_EQ(walked, bytes);
    }

    std::mt19937 random_;
    Model model_;
    test::Array array_;
    std::int16_t start_ = 0;
};
}  // namespace

TEST(DynArray, behavesLikeItsModelOverLongRunsOfCalls)
{
    for (const std::uint32_t itemSize : {4u, 5u, 8u, 12u, 37u}) {
        for (std::uint32_t seed = 1; seed <= 5; ++seed) {
            SCOPED_TRACE(testing::Message() << "item size " << itemSize << ", seed " << seed);
            ArrayRun run(itemSize, seed);
            for (int i = 0; i < 2500; ++i) {
                run.step();
                if (testing::Test::HasFailure()) FAIL() << "in step " << i;
            }
        }
    }
}
