// Arrays that free themselves, their content in plain C++ types, and allocations that fail.

#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <initializer_list>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "base/alloc.h"
#include "lib/containers/dyn_array.h"
#include "lib/containers/flex_dyn_array.h"

namespace test {

// A DynArray that frees its block at the end of the scope. It starts as a record of zeros.
struct Array : DynArray {
    Array() : DynArray{} {}
    Array(std::uint32_t size, std::uint32_t capacity) : DynArray{}
    {
        if (memNewDynArray(this, size, capacity) != 0) std::abort();
    }
    ~Array() { memFreeDynArray(this); }
    Array(const Array&) = delete;
    Array& operator=(const Array&) = delete;
};

// An array of items that are nothing but an ID of the type `ID`, its block exactly as large as the
// items, so that a sanitizer sees every look beyond them.
template <typename ID>
struct ArrayOf : Array {
    explicit ArrayOf(std::initializer_list<ID> ids) : ArrayOf(std::vector<ID>(ids)) {}
    explicit ArrayOf(const std::vector<ID>& ids)
        : Array(sizeof(ID), static_cast<std::uint32_t>(ids.size()))
    {
        for (const ID& id : ids) {
            if (memAppendItem(this, &id) != 0) std::abort();
        }
    }
};

// Appends the numbers from 0 on, so many of them, to an array of items of 4 bytes.
void fill(Array& array, std::uint32_t count);

// The items of an array of plain numbers.
template <typename ID>
std::vector<ID> itemsOf(const DynArray& array)
{
    std::vector<ID> items(array.itemCount);
    for (std::uint32_t i = 0; i < array.itemCount; ++i) {
        if (memCopyItemData(&array, i, &items[i]) != 0) std::abort();
    }
    return items;
}

// Record and content of an array, to be compared before and after a call that must change nothing.
struct ArrayState {
    DynArray record;
    std::string bytes;
};

ArrayState stateOf(const DynArray& array);
bool operator==(const ArrayState& a, const ArrayState& b);

// One item of a variable-item array.
struct FlexItem {
    std::uint32_t id;
    std::uint32_t type;
    std::string data;
};

bool operator==(const FlexItem& a, const FlexItem& b);
std::ostream& operator<<(std::ostream& stream, const FlexItem& item);

// The bytes of items as they lie in a block.
std::string bytesOf(const std::vector<FlexItem>& items);

// The bytes of one header in native order: ID, size, type.
std::string headerBytes(std::uint32_t id, std::uint32_t size, std::uint32_t type);

// A FlexDynArray that frees its blocks at the end of the scope. It starts as a record of zeros.
struct Flex : FlexDynArray {
    Flex() : FlexDynArray{} {}
    // An array of these very bytes in a block exactly as large.
    explicit Flex(std::string_view bytes);
    explicit Flex(const std::vector<FlexItem>& items) : Flex(bytesOf(items)) {}
    ~Flex() { memFreeFlexDynArray(this); }
    Flex(const Flex&) = delete;
    Flex& operator=(const Flex&) = delete;
};

// The used bytes, and the items in them, read without the library.
std::string usedBytesOf(const FlexDynArray& flex);
std::vector<FlexItem> itemsOf(const FlexDynArray& flex);

struct IndexEntry {
    std::uint32_t id;
    std::uint32_t location;
};

bool operator==(const IndexEntry& a, const IndexEntry& b);
std::ostream& operator<<(std::ostream& stream, const IndexEntry& entry);

std::vector<IndexEntry> indexOf(const FlexDynArray& flex);

struct FlexState {
    FlexDynArray record;
    std::string bytes;
    std::string indexBytes;
};

FlexState stateOf(const FlexDynArray& flex);
bool operator==(const FlexState& a, const FlexState& b);

// Makes the nth allocation of the scope fail.
class FailingAllocation {
public:
    explicit FailingAllocation(std::uint64_t nth) { pinorama::baseFailAllocation(nth); }
    ~FailingAllocation() { pinorama::baseFailAllocation(0); }
    FailingAllocation(const FailingAllocation&) = delete;
    FailingAllocation& operator=(const FailingAllocation&) = delete;

    // True when there were enough allocations for one to fail.
    bool hasHappened() const { return pinorama::baseAllocationHasFailed(); }
};

}  // namespace test
