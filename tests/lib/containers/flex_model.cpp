#include "tests/lib/containers/flex_model.h"

#include <algorithm>

namespace {
using Entries = std::vector<test::IndexEntry>;
using Items = std::vector<test::FlexItem>;

// Every entry of a small index, and of a large one those a step apart.
Entries expectedIndex(const Items& items)
{
    Entries firsts;
    Entries all;
    std::uint32_t location = 0;
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (i == 0 || items[i].id != items[i - 1].id) firsts.push_back({items[i].id, location});
        all.push_back({items[i].id, location});
        location += 12 + static_cast<std::uint32_t>(items[i].data.size());
    }
    if (firsts.size() <= 2048) return firsts;

    const std::uint64_t step = firsts.size() / 2048 + 1;
    Entries sparse;
    for (const test::IndexEntry& entry : all) {
        if (sparse.empty() || entry.id >= sparse.back().id + step) sparse.push_back(entry);
    }
    return sparse;
}
}  // namespace

std::size_t test::FlexModel::firstOf(std::uint32_t id) const
{
    std::size_t i = 0;
    while (i < items.size() && items[i].id != id) ++i;
    return i;
}

std::size_t test::FlexModel::endOfRun(std::size_t first) const
{
    std::size_t i = first;
    while (i < items.size() && items[i].id == items[first].id) ++i;
    return i;
}

bool test::FlexModel::isSorted() const
{
    return std::is_sorted(items.begin(), items.end(),
                          [](const auto& a, const auto& b) { return a.id < b.id; });
}

std::uint32_t test::FlexModel::locationOf(std::uint32_t id, std::uint32_t type) const
{
    std::uint32_t location = 0;
    for (std::size_t i = 0; i < items.size(); ++i) {
        const FlexItem& item = items[i];
        const bool isLastEmpty = i + 1 == items.size() && item.data.empty();
        if (item.id == id && item.type == type && !isLastEmpty) return location;
        location += 12 + static_cast<std::uint32_t>(item.data.size());
    }
    return UINT32_MAX;
}

bool test::FlexModel::change(std::uint32_t id, std::uint32_t type, const std::string& data)
{
    std::size_t i = 0;
    while (i < items.size() && items[i].id <= id) {
        if (items[i].id == id && items[i].type == type) break;
        ++i;
    }
    const bool found = i < items.size() && items[i].id == id && items[i].type == type;
    const std::uint64_t used = usedBytes();
    if (found) {
        const std::uint64_t older = items[i].data.size();
        if (data.size() > older && allocated < used + data.size() - older)
            allocated += data.size() - older + 4096;
        items[i].data = data;
        return data.size() != older;
    }
    if (allocated < used + data.size() + 12) allocated += data.size() + 12 + 4096;
    items.insert(items.begin() + static_cast<std::ptrdiff_t>(i), {id, type, data});
    return true;
}

void test::FlexModel::buildIndex()
{
    hasIndexBlock = true;
    index = expectedIndex(items);
    indexAllocated = 2048;
    while (indexAllocated < index.size()) indexAllocated += 40;
}

void test::FlexModel::dropIndex()
{
    hasIndexBlock = false;
    index.clear();
    indexAllocated = 0;
}
