// The dynamic array beside std::vector. The items are the same bytes, and the work has the same
// results.

#include "bench/library/containers_bench.h"
#include "lib/containers/dyn_array.h"
#include "lib/containers/dyn_array_search.h"
#include "lib/containers/dyn_array_sort.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <random>
#include <vector>

using bench::add;
using bench::kFewItems;
using bench::kItems;
using bench::kLookups;
using bench::kSeed;
using bench::randomIDs;
using bench::setItems;

namespace {
struct Item {
    std::uint32_t id;
    std::uint32_t value;
};

struct WideItem {
    std::uint64_t id;
    std::uint64_t values[3];
};

// Even IDs in ascending order, so that odd ones are missing.
template <typename T>
T itemOf(std::uint32_t i)
{
    T item{};
    item.id = i * 2;
    return item;
}

template <typename T>
struct Both {
    DynArray array{};
    std::vector<T> items;

    explicit Both(std::uint32_t count)
    {
        if (memNewDynArray(&array, sizeof(T), count) != 0) std::abort();
        for (std::uint32_t i = 0; i < count; i++) {
            items.push_back(itemOf<T>(i));
            if (memAppendItem(&array, &items.back()) != 0) std::abort();
        }
    }
    ~Both() { memFreeDynArray(&array); }
    Both(const Both&) = delete;
    Both& operator=(const Both&) = delete;
};

template <typename T>
void appendDynArray(benchmark::State& state, std::uint32_t count)
{
    for (auto _ : state) {
        DynArray array;
        if (memNewDynArray(&array, sizeof(T), 0) != 0) std::abort();
        for (std::uint32_t i = 0; i < count; i++) {
            const T item = itemOf<T>(i);
            (void)memAppendItem(&array, &item);
        }
        benchmark::DoNotOptimize(array.data);
        memFreeDynArray(&array);
    }
    setItems(state, count);
}

template <typename T>
void appendVector(benchmark::State& state, std::uint32_t count)
{
    for (auto _ : state) {
        std::vector<T> items;
        for (std::uint32_t i = 0; i < count; i++) items.push_back(itemOf<T>(i));
        benchmark::DoNotOptimize(items.data());
    }
    setItems(state, count);
}

// The cost of growing by a fixed number of items, for any container.
void appendVectorBy40(benchmark::State& state, std::uint32_t count)
{
    for (auto _ : state) {
        std::vector<Item> items;
        for (std::uint32_t i = 0; i < count; i++) {
            if (items.size() == items.capacity()) items.reserve(items.size() + kGrowthStep);
            items.push_back(itemOf<Item>(i));
        }
        benchmark::DoNotOptimize(items.data());
    }
    setItems(state, count);
}

void insertDynArray(benchmark::State& state)
{
    for (auto _ : state) {
        DynArray array;
        if (memNewDynArray(&array, sizeof(Item), 0) != 0) std::abort();
        for (std::uint32_t i = 0; i < kFewItems; i++) {
            const Item item = itemOf<Item>(i);
            (void)memInsertOneItem(&array, i / 2, &item);
        }
        benchmark::DoNotOptimize(array.data);
        memFreeDynArray(&array);
    }
    setItems(state, kFewItems);
}

void insertVector(benchmark::State& state)
{
    for (auto _ : state) {
        std::vector<Item> items;
        for (std::uint32_t i = 0; i < kFewItems; i++)
            items.insert(items.begin() + i / 2, itemOf<Item>(i));
        benchmark::DoNotOptimize(items.data());
    }
    setItems(state, kFewItems);
}

void searchSortedDynArray(benchmark::State& state, std::uint32_t count)
{
    const Both<Item> both(count);
    const std::vector<std::uint32_t> ids = randomIDs(count);
    for (auto _ : state) {
        for (const std::uint32_t id : ids) {
            std::uint32_t index = 0;
            benchmark::DoNotOptimize(memGetItemIndexFromID(&both.array, id, &index));
            benchmark::DoNotOptimize(index);
        }
    }
    setItems(state, kLookups);
}

void searchSortedVector(benchmark::State& state, std::uint32_t count)
{
    const Both<Item> both(count);
    const std::vector<std::uint32_t> ids = randomIDs(count);
    for (auto _ : state) {
        for (const std::uint32_t id : ids) {
            // Newer versions of the benchmark library do not accept const objects.
            auto place =
                std::lower_bound(both.items.begin(), both.items.end(), id,
                                 [](const Item& item, std::uint32_t key) { return item.id < key; });
            bool found = place != both.items.end() && place->id == id;
            benchmark::DoNotOptimize(found);
            benchmark::DoNotOptimize(place);
        }
    }
    setItems(state, kLookups);
}

void searchSorted64DynArray(benchmark::State& state, std::uint32_t count)
{
    const Both<WideItem> both(count);
    const std::vector<std::uint32_t> ids = randomIDs(count);
    for (auto _ : state) {
        for (const std::uint32_t id : ids) {
            std::uint32_t index = 0;
            benchmark::DoNotOptimize(memUInt64GetIndexFromSortedID(&both.array, id, &index));
            benchmark::DoNotOptimize(index);
        }
    }
    setItems(state, kLookups);
}

void searchSorted64Vector(benchmark::State& state, std::uint32_t count)
{
    const Both<WideItem> both(count);
    const std::vector<std::uint32_t> ids = randomIDs(count);
    for (auto _ : state) {
        for (const std::uint64_t id : ids) {
            auto place = std::lower_bound(
                both.items.begin(), both.items.end(), id,
                [](const WideItem& item, std::uint64_t key) { return item.id < key; });
            bool found = place != both.items.end() && place->id == id;
            benchmark::DoNotOptimize(found);
            benchmark::DoNotOptimize(place);
        }
    }
    setItems(state, kLookups);
}

void searchUnsortedDynArray(benchmark::State& state)
{
    const Both<Item> both(kFewItems);
    const std::vector<std::uint32_t> ids = randomIDs(kFewItems);
    for (auto _ : state) {
        for (const std::uint32_t id : ids) {
            void* item = nullptr;
            benchmark::DoNotOptimize(memGetItemByUnsortedID(&both.array, id, &item));
            benchmark::DoNotOptimize(item);
        }
    }
    setItems(state, kLookups);
}

void searchUnsortedVector(benchmark::State& state)
{
    const Both<Item> both(kFewItems);
    const std::vector<std::uint32_t> ids = randomIDs(kFewItems);
    for (auto _ : state) {
        for (const std::uint32_t id : ids) {
            auto place = std::find_if(both.items.begin(), both.items.end(),
                                      [id](const Item& item) { return item.id == id; });
            benchmark::DoNotOptimize(place);
        }
    }
    setItems(state, kLookups);
}

bool addValue(std::uint32_t /*index*/, void* item, void* sum, void* /*unused*/)
{
    *static_cast<std::uint64_t*>(sum) += static_cast<Item*>(item)->id;
    return true;
}

void walkDynArray(benchmark::State& state)
{
    const Both<Item> both(kItems);
    for (auto _ : state) {
        std::uint64_t sum = 0;
        (void)memWalkDynArray(&both.array, &sum, nullptr, addValue);
        benchmark::DoNotOptimize(sum);
    }
    setItems(state, kItems);
}

void walkVector(benchmark::State& state)
{
    Both<Item> both(kItems);
    memWalkFn callback = addValue;
    benchmark::DoNotOptimize(callback);
    for (auto _ : state) {
        std::uint64_t sum = 0;
        for (std::uint32_t i = 0; i < both.items.size(); i++) {
            if (!callback(i, &both.items[i], &sum, nullptr)) break;
        }
        benchmark::DoNotOptimize(sum);
    }
    setItems(state, kItems);
}

int byValue(void* /*context*/, const void* a, const void* b)
{
    const std::uint32_t left = static_cast<const Item*>(a)->value;
    const std::uint32_t right = static_cast<const Item*>(b)->value;
    return left < right ? -1 : left > right;
}

std::vector<Item> shuffledItems()
{
    std::mt19937 random(kSeed);
    std::vector<Item> items(kItems);
    for (Item& item : items) item.value = static_cast<std::uint32_t>(random());
    return items;
}

void sortDynArray(benchmark::State& state)
{
    const std::vector<Item> items = shuffledItems();
    DynArray array;
    if (memNewDynArray(&array, sizeof(Item), kItems) != 0) std::abort();
    for (auto _ : state) {
        memDeleteAllItems(&array);
        (void)memInsertMoreItems(&array, 0, kItems, items.data());
        memQuickSort(&array, byValue);
        benchmark::DoNotOptimize(array.data);
    }
    memFreeDynArray(&array);
    setItems(state, kItems);
}

void sortVector(benchmark::State& state)
{
    const std::vector<Item> items = shuffledItems();
    memCompareFn compare = byValue;
    benchmark::DoNotOptimize(compare);
    for (auto _ : state) {
        std::vector<Item> sorted = items;
        std::sort(sorted.begin(), sorted.end(),
                  [compare](const Item& a, const Item& b) { return compare(nullptr, &a, &b) < 0; });
        benchmark::DoNotOptimize(sorted.data());
    }
    setItems(state, kItems);
}

[[maybe_unused]] const bool kRegistered = [] {
    add("append 1000 items/DynArray", appendDynArray<Item>, kFewItems);
    add("append 1000 items/std::vector", appendVector<Item>, kFewItems);
    add("append 1000 items/std::vector grown by 40", appendVectorBy40, kFewItems);
    add("append 100000 items/DynArray", appendDynArray<Item>, kItems);
    add("append 100000 items/std::vector", appendVector<Item>, kItems);
    add("append 1000000 items/DynArray", appendDynArray<Item>, kItems * 10);
    add("append 1000000 items/std::vector", appendVector<Item>, kItems * 10);
    add("append 100000 items of 32 bytes/DynArray", appendDynArray<WideItem>, kItems);
    add("append 100000 items of 32 bytes/std::vector", appendVector<WideItem>, kItems);
    add("insert in the middle/DynArray", insertDynArray);
    add("insert in the middle/std::vector", insertVector);
    add("find among 1000 sorted/DynArray", searchSortedDynArray, kFewItems);
    add("find among 1000 sorted/std::vector", searchSortedVector, kFewItems);
    add("find among 100000 sorted/DynArray", searchSortedDynArray, kItems);
    add("find among 100000 sorted/std::vector", searchSortedVector, kItems);
    add("find 64-bit ID among 100000 sorted/DynArray", searchSorted64DynArray, kItems);
    add("find 64-bit ID among 100000 sorted/std::vector", searchSorted64Vector, kItems);
    add("find among 1000 unsorted/DynArray", searchUnsortedDynArray);
    add("find among 1000 unsorted/std::vector", searchUnsortedVector);
    add("walk items/DynArray", walkDynArray);
    add("walk items/std::vector and the same callback", walkVector);
    add("sort/DynArray", sortDynArray);
    add("sort/std::vector and the same comparator", sortVector);
    return true;
}();
}  // namespace
