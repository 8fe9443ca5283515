// The content of the places file, checked piece by piece as it is read. Whatever the bytes are,
// nothing outside them is read: an index that is too large gives an empty result.
//
// Stored numbers have the least significant byte first. Stored coordinates count
// hundred-thousandths of a degree; docs/formats.md has the tables.

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace pinorama {

constexpr double kStoredUnit = 100000.0;    // stored units in a degree
constexpr double kEarthRadius = 6371.0088;  // kilometres, the mean radius of WGS 84

// Numbers without an alignment. They are read by the hundred for one place.
inline std::uint16_t load16(const std::uint8_t* bytes)
{
    return static_cast<std::uint16_t>(bytes[0] | bytes[1] << 8);
}

inline std::uint32_t load24(const std::uint8_t* bytes)
{
    return static_cast<std::uint32_t>(bytes[0] | bytes[1] << 8 | bytes[2] << 16);
}

inline std::uint32_t load32(const std::uint8_t* bytes)
{
    return load24(bytes) | std::uint32_t{bytes[3]} << 24;
}

inline std::int32_t loadSigned32(const std::uint8_t* bytes)
{
    return static_cast<std::int32_t>(load32(bytes));
}

inline std::uint64_t load64(const std::uint8_t* bytes)
{
    return load32(bytes) | std::uint64_t{load32(bytes + 4)} << 32;
}

// A section is a sequence of items of one size.
class PlaceSection {
public:
    PlaceSection() = default;
    PlaceSection(std::span<const std::uint8_t> bytes, std::size_t itemSize)
        : bytes_(bytes.first(bytes.size() / itemSize * itemSize)), itemSize_(itemSize)
    {
    }

    std::size_t count() const { return bytes_.size() / itemSize_; }

    // The bytes of one item; null if there is no such item.
    const std::uint8_t* item(std::size_t index) const
    {
        return index < count() ? bytes_.data() + index * itemSize_ : nullptr;
    }

    // True if `number` items from `first` on exist.
    bool has(std::uint64_t first, std::uint64_t number) const { return first + number <= count(); }

    std::span<const std::uint8_t> bytes() const { return bytes_; }

private:
    std::span<const std::uint8_t> bytes_;
    std::size_t itemSize_ = 1;
};

class PlaceData {
public:
    // Takes the content of a file, which must outlive the object. Nothing if the header, the
    // length, the checksum or the table of sections is wrong.
    static std::optional<PlaceData> parse(std::span<const std::uint8_t> bytes);

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
};

// The checksum of a file: FNV-1a over words of 8 bytes, the last one filled up with zeros, with the
// upper half of the sum folded into the lower one after each step.
std::uint64_t placesChecksum(std::span<const std::uint8_t> bytes);

constexpr std::size_t kPlacesChecksumAt = 16;  // its 8 bytes; it covers all that follows them

}  // namespace pinorama
