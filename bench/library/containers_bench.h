// What the benchmarks of both containers share: sizes, the IDs to search for, and names.

#pragma once

#include <benchmark/benchmark.h>

#include <cstdint>
#include <random>
#include <vector>

namespace bench {

constexpr std::uint32_t kSeed = 6;
constexpr std::uint32_t kItems = 100'000;
constexpr std::uint32_t kFewItems = 1000;
constexpr std::uint32_t kLookups = 50'000;  // per round; too many for a branch predictor to learn

// IDs to search for: half of them exist.
inline std::vector<std::uint32_t> randomIDs(std::uint32_t count)
{
    std::mt19937 random(kSeed);
    std::vector<std::uint32_t> ids(kLookups);
    for (std::uint32_t& id : ids) id = static_cast<std::uint32_t>(random() % (count * 2));
    return ids;
}

inline void setItems(benchmark::State& state, std::int64_t perRound)
{
    state.SetItemsProcessed(state.iterations() * perRound);
}

// The contenders of a group do the same work: "group/contender".
template <typename... Arguments>
void add(const char* name, Arguments... arguments)
{
    benchmark::RegisterBenchmark(name, arguments...);
}

}  // namespace bench
