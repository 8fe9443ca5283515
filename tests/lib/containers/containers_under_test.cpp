#include "tests/lib/containers/containers_under_test.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>

using namespace pinorama;

namespace {
std::uint32_t fieldAt(const std::uint8_t* bytes)
{
    std::uint32_t value;
    std::memcpy(&value, bytes, sizeof value);
    return value;
}

std::string bytesAt(const std::uint8_t* bytes, std::size_t count)
{
    return count == 0 ? std::string() : std::string(reinterpret_cast<const char*>(bytes), count);
}

bool sameRecord(const DynArray& a, const DynArray& b)
{
    return a.itemSize == b.itemSize && a.allocatedAmount == b.allocatedAmount &&
           a.itemCount == b.itemCount && a.data == b.data;
}
}  // namespace

void test::fill(Array& array, std::uint32_t count)
{
    for (std::uint32_t i = 0; i < count; ++i) ASSERT_EQ(memAppendItem(&array, &i), 0);
}

test::ArrayState test::stateOf(const DynArray& array)
{
    const std::size_t items = std::min(array.itemCount, array.allocatedAmount);
    return {array, bytesAt(array.data, items * array.itemSize)};
}

bool test::operator==(const ArrayState& a, const ArrayState& b)
{
    return sameRecord(a.record, b.record) && a.bytes == b.bytes;
}

bool test::operator==(const FlexItem& a, const FlexItem& b)
{
    return a.id == b.id && a.type == b.type && a.data == b.data;
}

std::ostream& test::operator<<(std::ostream& stream, const FlexItem& item)
{
    return stream << "(" << item.id << ", " << item.type << ", \"" << item.data << "\")";
}

std::string test::headerBytes(std::uint32_t id, std::uint32_t size, std::uint32_t type)
{
    std::string bytes(12, '\0');
    std::memcpy(bytes.data(), &id, 4);
    std::memcpy(bytes.data() + 4, &size, 4);
    std::memcpy(bytes.data() + 8, &type, 4);
    return bytes;
}

std::string test::bytesOf(const std::vector<FlexItem>& items)
{
    std::string bytes;
    for (const FlexItem& item : items) {
        bytes += headerBytes(item.id, static_cast<std::uint32_t>(item.data.size()), item.type);
        bytes += item.data;
    }
    return bytes;
}

test::Flex::Flex(std::string_view bytes) : FlexDynArray{}
{
    const auto size = static_cast<std::uint32_t>(bytes.size());
    if (memNewFlexDynArray(this, size) != 0) std::abort();
    if (size > 0) std::memcpy(data, bytes.data(), size);
    usedBytes = size;
}

std::string test::usedBytesOf(const FlexDynArray& flex)
{
    return bytesAt(flex.data, flex.usedBytes);
}

std::vector<test::FlexItem> test::itemsOf(const FlexDynArray& flex)
{
    std::vector<FlexItem> items;
    std::size_t location = 0;
    while (location < flex.usedBytes) {
        const std::uint8_t* header = flex.data + location;
        const std::size_t size = fieldAt(header + 4);
        items.push_back({fieldAt(header), fieldAt(header + 8), bytesAt(header + 12, size)});
        location += 12 + size;
    }
    return items;
}

bool test::operator==(const IndexEntry& a, const IndexEntry& b)
{
    return a.id == b.id && a.location == b.location;
}

std::ostream& test::operator<<(std::ostream& stream, const IndexEntry& entry)
{
    return stream << "(" << entry.id << " at " << entry.location << ")";
}

std::vector<test::IndexEntry> test::indexOf(const FlexDynArray& flex)
{
    std::vector<IndexEntry> entries;
    for (std::size_t i = 0; i < flex.index.itemCount; ++i) {
        entries.push_back({fieldAt(flex.index.data + i * 8), fieldAt(flex.index.data + i * 8 + 4)});
    }
    return entries;
}

test::FlexState test::stateOf(const FlexDynArray& flex)
{
    return {flex, usedBytesOf(flex), stateOf(flex.index).bytes};
}

bool test::operator==(const FlexState& a, const FlexState& b)
{
    return a.record.allocatedBytes == b.record.allocatedBytes &&
           a.record.usedBytes == b.record.usedBytes && a.record.data == b.record.data &&
           sameRecord(a.record.index, b.record.index) && a.bytes == b.bytes &&
           a.indexBytes == b.indexBytes;
}
