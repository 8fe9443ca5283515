#include "pictures/iso_item_tables.h"

#include <algorithm>

namespace pinorama {
namespace {
constexpr std::uint64_t kMaxNumberSize = 8;  // bytes

// What follows the version, the flags and the count of `iinf`.
ByteBlock entriesOf(const ByteBlock& iinf)
{
    IsoNumbers numbers(iinf);
    const std::uint64_t version = numbers.next(1);
    numbers.next(3);
    numbers.next(version == 0 ? 2 : 4);  // how many there are; the box says it, too
    return numbers.rest();
}

std::optional<IsoItemInfo> infoIn(const ByteBlock& infe)
{
    IsoNumbers numbers(infe);
    const std::uint64_t version = numbers.next(1);
    numbers.next(3);
    if (version != 2 && version != 3) return std::nullopt;  // the older ones have no types
    const auto item = static_cast<std::uint32_t>(numbers.next(version == 2 ? 2 : 4));
    numbers.next(2);  // protection
    const auto type = static_cast<std::uint32_t>(numbers.next(4));
    if (numbers.hasFailed()) return std::nullopt;
    return IsoItemInfo{item, type, numbers.rest()};
}
}  // namespace

std::uint64_t IsoNumbers::next(std::size_t size)
{
    const ByteView bytes = block_.view(position_, size);
    hasFailed_ |= bytes.size() != size;
    position_ += size;
    std::uint64_t value = 0;
    for (const std::uint8_t byte : bytes) value = value << 8 | byte;
    return value;
}

IsoItemTables findIsoItemTables(const ByteBlock& meta, StepBudget& budget)
{
    IsoItemTables tables;
    IsoBoxes boxes(childrenOfMeta(meta), budget);
    while (const std::optional<IsoBox> box = boxes.next()) {
        switch (box->type) {
        case boxType("pitm"): tables.primary = box->content; break;
        case boxType("iinf"): tables.infos = box->content; break;
        case boxType("iloc"): tables.locations = box->content; break;
        case boxType("idat"): tables.data = box->content; break;
        case boxType("iref"): tables.references = box->content; break;
        case boxType("iprp"): tables.properties = box->content; break;
        default: break;
        }
    }
    return tables;
}

IsoItemInfos::IsoItemInfos(const ByteBlock& iinf, StepBudget& budget)
    : entries_(entriesOf(iinf), budget)
{
}

std::optional<IsoItemInfo> IsoItemInfos::next()
{
    while (const std::optional<IsoBox> entry = entries_.next()) {
        if (entry->type != boxType("infe")) continue;
        if (const std::optional<IsoItemInfo> info = infoIn(entry->content)) return info;
    }
    return std::nullopt;
}

ByteBlock IsoItemLocation::bytesIn(const ByteBlock& file, const IsoItemTables& tables) const
{
    if (extents != 1 || reference != 0 || method > 1) return {};
    return (method == 1 ? tables.data : file).part(offset, length);
}

IsoItemLocations::IsoItemLocations(const ByteBlock& iloc) : numbers_(iloc)
{
    version_ = numbers_.next(1);
    numbers_.next(3);
    const std::uint64_t sizes = numbers_.next(2);
    offsetSize_ = sizes >> 12;
    lengthSize_ = sizes >> 8 & 15;
    baseSize_ = sizes >> 4 & 15;
    indexSize_ = version_ == 0 ? 0 : sizes & 15;
    left_ = numbers_.next(version_ < 2 ? 2 : 4);
    const bool isSound = version_ <= 2 && std::max({offsetSize_, lengthSize_, baseSize_,
                                                    indexSize_}) <= kMaxNumberSize;
    if (!isSound) left_ = 0;
}

std::optional<IsoItemLocation> IsoItemLocations::next()
{
    if (left_ == 0) return std::nullopt;
    --left_;
    IsoItemLocation location;
    location.item = static_cast<std::uint32_t>(numbers_.next(version_ < 2 ? 2 : 4));
    if (version_ > 0) location.method = numbers_.next(2) & 15;
    location.reference = numbers_.next(2);
    const std::uint64_t base = numbers_.next(baseSize_);
    location.extents = numbers_.next(2);
    location.offset = base;
    // Extents that take no bytes would be counted for ever: a table can claim thousands of
    // millions.
    const bool hasExtents = indexSize_ + offsetSize_ + lengthSize_ != 0;
    for (std::uint64_t i = 0; hasExtents && i < location.extents && !numbers_.hasFailed(); i++) {
        numbers_.next(indexSize_);
        location.offset = base + numbers_.next(offsetSize_);
        location.length = numbers_.next(lengthSize_);
    }
    if (numbers_.hasFailed()) return std::nullopt;
    return location;
}

}  // namespace pinorama
