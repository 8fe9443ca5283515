#include "places/place_data.h"

#include <algorithm>
#include <cstring>
#include <vector>

using namespace pinorama;

namespace {
constexpr std::string_view kMagic = "PnPlaces";
constexpr std::uint32_t kVersion = 1;
constexpr std::size_t kHeaderSize = 32;
constexpr std::size_t kEntrySize = 12;  // of the table of sections
constexpr std::uint32_t kMaxSections = 64;
constexpr std::size_t kNamesPerBlock = 16;
constexpr std::size_t kLongestBlock = kNamesPerBlock * (2 + 255);  // bytes of names
constexpr std::string_view kSumsName = "SUMS";

struct SectionRule {
    std::string_view name;
    std::size_t itemSize;
    PlaceSection PlaceData::*section;
};

constexpr SectionRule kSections[] = {
    {"AREA", 4, &PlaceData::areas},      {"RING", 28, &PlaceData::rings},
    {"VERT", 8, &PlaceData::vertices},   {"SEAS", 32, &PlaceData::seas},
    {"SRNG", 28, &PlaceData::seaRings},  {"SVRT", 8, &PlaceData::seaVertices},
    {"TREE", 32, &PlaceData::trees},     {"TOWN", 11, &PlaceData::towns},
    {"NBLK", 4, &PlaceData::nameBlocks}, {"NAME", 1, &PlaceData::names},
    {"ZLST", 2, &PlaceData::zoneLists},  {"ZONE", 32, &PlaceData::zones},
    {"MLVL", 12, &PlaceData::mapLevels}, {"MLIN", 28, &PlaceData::mapLines},
    {"MPTS", 1, &PlaceData::mapPoints},
};

struct Entry {
    std::string_view name;
    std::uint64_t offset, length;  // bytes
};

std::vector<Entry> readTable(const std::uint8_t* header, std::uint32_t count)
{
    std::vector<Entry> table;
    for (std::uint32_t index = 0; index < count; ++index) {
        const std::uint8_t* entry = header + kHeaderSize + index * kEntrySize;
        table.push_back(
            {{reinterpret_cast<const char*>(entry), 4}, load32(entry + 4), load32(entry + 8)});
    }
    return table;
}
}  // namespace

std::span<const std::uint8_t> PlaceSection::items(std::uint64_t first, std::uint64_t number) const
{
    if (number == 0 || !has(first, number)) return {};
    const auto bytes = bytes_.subspan(first * itemSize_, number * itemSize_);
    const bool isWhole = sums_ == nullptr || sums_->areWhole(bytes.data(), bytes.size());
    return isWhole ? bytes : std::span<const std::uint8_t>();
}

std::span<const std::uint8_t> PlaceSection::itemsFrom(std::uint64_t first) const
{
    if (first >= count()) return {};
    const auto rest = bytes_.subspan(first * itemSize_);
    if (sums_ == nullptr) return rest;
    return rest.first(std::min(rest.size(), sums_->wholeFrom(rest.data())));
}

std::optional<PlaceData> PlaceData::parse(std::span<const std::uint8_t> bytes)
{
    if (bytes.size() < kHeaderSize) return std::nullopt;
    const std::uint8_t* header = bytes.data();
    if (std::memcmp(header, kMagic.data(), kMagic.size()) != 0) return std::nullopt;
    if (load32(header + 8) != kVersion || load32(header + 24) != bytes.size()) return std::nullopt;
    const std::uint32_t count = load32(header + 28);
    if (count > kMaxSections) return std::nullopt;
    if (bytes.size() - kHeaderSize < count * kEntrySize) return std::nullopt;

    const std::size_t summed = kPlacesChecksumAt + sizeof(std::uint64_t);

    PlaceData data;
    std::size_t checked = 0;  // the end of what has been checked
    for (const auto& [name, offset, length] : readTable(header, count)) {
        if (offset + length > bytes.size()) return std::nullopt;
        if (name != kSumsName) continue;
        const auto sums = bytes.subspan(offset, length);
        // One for each block, and one of everything up to these.
        const std::size_t blocks = BlockSums::blocksOf(bytes.size());
        if (offset < kHeaderSize || length != (blocks + 1) * sizeof(std::uint64_t)) {
            return std::nullopt;
        }
        const auto before = bytes.subspan(summed, offset + length - sizeof(std::uint64_t) - summed);
        checked = offset + length;
        if (load64(before.data() + before.size()) != placesChecksum(before)) return std::nullopt;
        data.sums_ = std::make_shared<BlockSums>(bytes, sums, checked);
    }
    if (data.sums_ == nullptr &&
        load64(header + kPlacesChecksumAt) != placesChecksum(bytes.subspan(summed))) {
        return std::nullopt;
    }
    for (const auto& [name, offset, length] : readTable(header, count)) {
        // A section that a later version adds is passed over.
        for (const SectionRule& rule : kSections) {
            if (name != rule.name) continue;
            data.*rule.section =
                PlaceSection(bytes.subspan(offset, length), rule.itemSize, data.sums_.get());
        }
    }
    return data;
}

std::string PlaceData::name(std::uint32_t index) const
{
    const std::uint8_t* block = nameBlocks.item(index / kNamesPerBlock);
    if (block == nullptr) return {};
    const std::uint64_t first = load32(block);
    if (first >= names.count()) return {};
    const std::span<const std::uint8_t> bytes =
        names.items(first, std::min<std::uint64_t>(kLongestBlock, names.count() - first));
    std::size_t at = 0;
    std::string name;
    for (std::uint32_t skipped = 0; skipped <= index % kNamesPerBlock; ++skipped) {
        if (at + 2 > bytes.size()) return {};
        const std::size_t shared = bytes[at];
        const std::size_t rest = bytes[at + 1];
        at += 2;
        if (shared > name.size() || at + rest > bytes.size()) return {};
        name.resize(shared);
        name.append(reinterpret_cast<const char*>(bytes.data()) + at, rest);
        at += rest;
    }
    return name;
}

std::string_view PlaceData::fixedText(const PlaceSection& section, std::size_t index)
{
    const std::uint8_t* field = section.item(index);
    if (field == nullptr) return {};
    const auto* text = reinterpret_cast<const char*>(field);
    return {text, strnlen(text, 32)};
}
