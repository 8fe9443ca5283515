// What a variable-item array must be after each call: its items, amounts and index, in plain C++
// types.

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "tests/lib/containers/containers_under_test.h"

namespace test {

struct FlexModel {
    std::uint64_t allocated = 0;
    std::vector<FlexItem> items;
    bool hasIndexBlock = false;
    std::uint64_t indexAllocated = 0;
    std::vector<IndexEntry> index;

    std::uint64_t usedBytes() const { return bytesOf(items).size(); }

    // Where the items with this ID begin; the number of all items if there are none.
    std::size_t firstOf(std::uint32_t id) const;
    // Where the items end that follow `first` with the same ID.
    std::size_t endOfRun(std::size_t first) const;
    // True if the IDs never descend.
    bool isSorted() const;
    // The location of the item that a look-up in a sorted array finds: any but one without data in
    // last place. UINT32_MAX for none.
    std::uint32_t locationOf(std::uint32_t id, std::uint32_t type) const;

    // What memChangeFlexData does. Returns true if that moves other items or adds one.
    bool change(std::uint32_t id, std::uint32_t type, const std::string& data);

    void buildIndex();
    void dropIndex();
};

}  // namespace test
