// The variable-item array beside the containers that a C++ program would use. The name of an
// alternative says what it lacks (order, contiguous bytes).

#include "bench/library/containers_bench.h"
#include "lib/containers/flex_dyn_array.h"
#include "lib/containers/flex_index.h"
#include "lib/containers/flex_lookup.h"

#ifdef PINORAMA_BENCH_ABSL
#include <absl/container/flat_hash_map.h>
#endif

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <random>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

using bench::add;
using bench::kFewItems;
using bench::kItems;
using bench::kLookups;
using bench::kSeed;
using bench::randomIDs;
using bench::setItems;

namespace {
// A variable item as a C++ program would store it.
struct Record {
    std::uint32_t id;
    std::uint32_t type;
    std::string data;
};

bool isBefore(const Record& a, const Record& b)
{
    return std::pair(a.id, a.type) < std::pair(b.id, b.type);
}

// `count` IDs with two items each, of 20 to 51 bytes.
std::vector<Record> recordsOf(std::uint32_t count)
{
    std::mt19937 random(kSeed);
    std::vector<Record> records;
    for (std::uint32_t i = 0; i < count; i++) {
        for (const std::uint32_t type : {1u, 2u})
            records.push_back({i * 2, type, std::string(20 + random() % 32, 'x')});
    }
    return records;
}

std::uint32_t sizeOf(const Record& record)
{
    return static_cast<std::uint32_t>(record.data.size());
}

struct FlexHolder {
    FlexDynArray flex{};

    explicit FlexHolder(const std::vector<Record>& records)
    {
        for (const Record& r : records) {
            if (memAddFlexDataAtEnd(&flex, r.id, r.type, sizeOf(r), r.data.data()) != 0)
                std::abort();
        }
    }
    ~FlexHolder() { memFreeFlexDynArray(&flex); }
    FlexHolder(const FlexHolder&) = delete;
    FlexHolder& operator=(const FlexHolder&) = delete;
};

void appendFlex(benchmark::State& state)
{
    const std::vector<Record> records = recordsOf(kItems / 2);
    for (auto _ : state) {
        FlexHolder holder(records);  // newer versions of the benchmark library do not accept const
        benchmark::DoNotOptimize(holder.flex.data);
    }
    setItems(state, kItems);
}

void appendBytes(benchmark::State& state)
{
    const std::vector<Record> records = recordsOf(kItems / 2);
    for (auto _ : state) {
        std::vector<char> bytes;
        for (const Record& r : records) {
            const std::uint32_t header[3] = {r.id, sizeOf(r), r.type};
            const auto* start = reinterpret_cast<const char*>(header);
            bytes.insert(bytes.end(), start, start + sizeof header);
            bytes.insert(bytes.end(), r.data.begin(), r.data.end());
        }
        benchmark::DoNotOptimize(bytes.data());
    }
    setItems(state, kItems);
}

void appendRecords(benchmark::State& state)
{
    const std::vector<Record> records = recordsOf(kItems / 2);
    for (auto _ : state) {
        std::vector<Record> copies;
        for (const Record& r : records) copies.push_back(r);
        benchmark::DoNotOptimize(copies.data());
    }
    setItems(state, kItems);
}

// Setting items in random order of their IDs: insertions in the middle.
std::vector<Record> inRandomOrder(std::vector<Record> records)
{
    std::shuffle(records.begin(), records.end(), std::mt19937(kSeed));
    return records;
}

void insertFlex(benchmark::State& state)
{
    const std::vector<Record> records = inRandomOrder(recordsOf(kFewItems / 2));
    for (auto _ : state) {
        FlexDynArray flex{};
        for (const Record& r : records)
            (void)memChangeFlexData(&flex, r.id, r.type, sizeOf(r), r.data.data());
        benchmark::DoNotOptimize(flex.data);
        memFreeFlexDynArray(&flex);
    }
    setItems(state, kFewItems);
}

void insertRecords(benchmark::State& state)
{
    const std::vector<Record> records = inRandomOrder(recordsOf(kFewItems / 2));
    for (auto _ : state) {
        std::vector<Record> sorted;
        for (const Record& r : records)
            sorted.insert(std::lower_bound(sorted.begin(), sorted.end(), r, isBefore), r);
        benchmark::DoNotOptimize(sorted.data());
    }
    setItems(state, kFewItems);
}

void lookUpFlex(benchmark::State& state, std::uint32_t count)
{
    FlexHolder holder(recordsOf(count));
    if (memBuildFlexIndex(&holder.flex) != 0) std::abort();
    const std::vector<std::uint32_t> ids = randomIDs(count);
    for (auto _ : state) {
        for (const std::uint32_t id : ids) {
            std::uint32_t size = 0;
            void* data = nullptr;
            benchmark::DoNotOptimize(memGetFlexDataInfo(&holder.flex, id, 2, &size, &data));
            benchmark::DoNotOptimize(data);
        }
    }
    setItems(state, kLookups);
}

void lookUpRecords(benchmark::State& state, std::uint32_t count)
{
    const std::vector<Record> records = recordsOf(count);
    const std::vector<std::uint32_t> ids = randomIDs(count);
    for (auto _ : state) {
        for (const std::uint32_t id : ids) {
            const auto key = std::pair(id, 2u);
            const auto place = std::lower_bound(records.begin(), records.end(), key,
                                                [](const Record& r, const auto& wanted) {
                                                    return std::pair(r.id, r.type) < wanted;
                                                });
            const bool found = place != records.end() && std::pair(place->id, place->type) == key;
            const char* data = found ? place->data.data() : nullptr;
            benchmark::DoNotOptimize(data);
        }
    }
    setItems(state, kLookups);
}

template <typename Map>
void lookUpMap(benchmark::State& state, std::uint32_t count)
{
    Map map;
    for (const Record& r : recordsOf(count)) map[std::uint64_t{r.id} << 32 | r.type] = r.data;
    const std::vector<std::uint32_t> ids = randomIDs(count);
    for (auto _ : state) {
        for (const std::uint32_t id : ids) {
            const auto place = map.find(std::uint64_t{id} << 32 | 2);
            const char* data = place != map.end() ? place->second.data() : nullptr;
            benchmark::DoNotOptimize(data);
        }
    }
    setItems(state, kLookups);
}

bool addSize(std::uint32_t id, std::uint32_t type, std::uint32_t size, void* data, void* sum)
{
    *static_cast<std::uint64_t*>(sum) += id + type + size + *static_cast<unsigned char*>(data);
    return true;
}

void walkFlex(benchmark::State& state)
{
    const FlexHolder holder(recordsOf(kItems / 2));
    for (auto _ : state) {
        std::uint64_t sum = 0;
        (void)memWalkFlexDynArray(&holder.flex, &sum, addSize);
        benchmark::DoNotOptimize(sum);
    }
    setItems(state, kItems);
}

void walkRecords(benchmark::State& state)
{
    std::vector<Record> records = recordsOf(kItems / 2);
    memFlexWalkFn callback = addSize;
    benchmark::DoNotOptimize(callback);
    for (auto _ : state) {
        std::uint64_t sum = 0;
        for (Record& r : records) {
            if (!callback(r.id, r.type, sizeOf(r), r.data.data(), &sum)) break;
        }
        benchmark::DoNotOptimize(sum);
    }
    setItems(state, kItems);
}

using HashMap = std::unordered_map<std::uint64_t, std::string>;
#ifdef PINORAMA_BENCH_ABSL
using FlatMap = absl::flat_hash_map<std::uint64_t, std::string>;
#endif

[[maybe_unused]] const bool kRegistered = [] {
    add("append variable items/FlexDynArray", appendFlex);
    add("append variable items/std::vector of bytes", appendBytes);
    add("append variable items/std::vector of records, not contiguous", appendRecords);
    add("insert 1000 variable items/FlexDynArray", insertFlex);
    add("insert 1000 variable items/sorted std::vector of records", insertRecords);
    add("look up among 2000 IDs/FlexDynArray", lookUpFlex, 2000);
    add("look up among 2000 IDs/sorted std::vector of records", lookUpRecords, 2000);
    add("look up among 2000 IDs/std::unordered_map, not ordered", lookUpMap<HashMap>, 2000);
    add("look up among 50000 IDs/FlexDynArray", lookUpFlex, 50'000);
    add("look up among 50000 IDs/sorted std::vector of records", lookUpRecords, 50'000);
    add("look up among 50000 IDs/std::unordered_map, not ordered", lookUpMap<HashMap>, 50'000);
#ifdef PINORAMA_BENCH_ABSL
    add("look up among 2000 IDs/absl::flat_hash_map, not ordered", lookUpMap<FlatMap>, 2000);
    add("look up among 50000 IDs/absl::flat_hash_map, not ordered", lookUpMap<FlatMap>, 50'000);
#endif
    add("walk variable items/FlexDynArray", walkFlex);
    add("walk variable items/std::vector of records and the same callback", walkRecords);
    return true;
}();
}  // namespace
