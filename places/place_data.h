// The content of the places file, checked piece by piece as it is read. Whatever the bytes are,
// nothing outside them is read: an index that is too large gives an empty result.
//
// Stored coordinates count hundred-thousandths of a degree; docs/formats.md has the tables.

#pragma once

#include "places/block_sums.h"
#include "places/stored_numbers.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace pinorama {

constexpr double kStoredUnit = 100000.0;    // stored units in a degree
constexpr double kEarthRadius = 6371.0088;  // kilometres, the mean radius of WGS 84

// A section is a sequence of items of one size. Where the file has checksums of its blocks, what is
// handed out has been compared with them.
class PlaceSection {
public:
    PlaceSection() = default;

    // `sums` is null where all of the bytes have been checked, and outlives the section otherwise.
    PlaceSection(std::span<const std::uint8_t> bytes, std::size_t itemSize, BlockSums* sums)
        : bytes_(bytes.first(bytes.size() / itemSize * itemSize)), itemSize_(itemSize), sums_(sums)
    {
    }

    std::size_t count() const { return bytes_.size() / itemSize_; }

    // The bytes of one item; null if there is no such item, or if it is damaged.
    const std::uint8_t* item(std::size_t index) const
    {
        if (index >= count()) return nullptr;
        const std::uint8_t* bytes = bytes_.data() + index * itemSize_;
        return sums_ == nullptr || sums_->areWhole(bytes, itemSize_) ? bytes : nullptr;
    }

    // True if `number` items from `first` on exist; they may be damaged.
    bool has(std::uint64_t first, std::uint64_t number) const { return first + number <= count(); }

    // The bytes of `number` items from `first` on, one after the other; empty if one of them does
    // not exist or is damaged.
    std::span<const std::uint8_t> items(std::uint64_t first, std::uint64_t number) const;

    // The bytes from item `first` on that can be had by checking one more block; empty at the end
    // of the section and where it is damaged.
    std::span<const std::uint8_t> itemsFrom(std::uint64_t first) const;

private:
    std::span<const std::uint8_t> bytes_;
    std::size_t itemSize_ = 1;
    BlockSums* sums_ = nullptr;
};

class PlaceData {
public:
    // Takes the content of a file, which must outlive the object. Nothing if the header, the
    // length, the checksum of these or the table of sections is wrong. A file without checksums of
    // its blocks is checked as a whole.
    static std::optional<PlaceData> parse(std::span<const std::uint8_t> bytes);

    // True once something damaged was to be read: what was found with it is not to be relied upon.
    bool isDamaged() const { return sums_ && sums_->haveFailed(); }

    // The checksums of the blocks; null if the file has none.
    const BlockSums* blockSums() const { return sums_.get(); }

    PlaceSection areas;        // "AREA": a country, and the islands that it is
    PlaceSection rings;        // "RING": the outlines of the areas
    PlaceSection vertices;     // "VERT": their points
    PlaceSection seas;         // "SEAS": names
    PlaceSection seaRings;     // "SRNG": one outline for each, the first that fits counts
    PlaceSection seaVertices;  // "SVRT"
    PlaceSection trees;        // "TREE": the towns of a country, large ones apart from small ones
    PlaceSection towns;        // "TOWN"
    PlaceSection nameBlocks;   // "NBLK": where each block of names begins
    PlaceSection names;        // "NAME": bytes
    PlaceSection zoneLists;    // "ZLST": the zones of a country, numbers in "ZONE"
    PlaceSection zones;        // "ZONE": names
    PlaceSection mapLevels;    // "MLVL": the scales of the map
    PlaceSection mapLines;     // "MLIN": coasts and borders
    PlaceSection mapPoints;    // "MPTS": bytes

    // The name of number `index` in alphabetical order; empty if there is none.
    std::string name(std::uint32_t index) const;

    // The text of a field of 32 bytes that ends with its first zero.
    static std::string_view fixedText(const PlaceSection& section, std::size_t index);

private:
    std::shared_ptr<BlockSums> sums_;  // of all copies
};

constexpr std::size_t kPlacesChecksumAt = 16;  // its 8 bytes; it covers all that follows them

}  // namespace pinorama
