#include "places/place_data.h"

#include <algorithm>
#include <cstring>
#include <utility>

using namespace pinorama;

namespace {
constexpr std::string_view kMagic = "PnPlaces";
constexpr std::uint32_t kVersion = 1;
constexpr std::size_t kHeaderSize = 32;
constexpr std::size_t kEntrySize = 12;  // of the table of sections
constexpr std::uint32_t kMaxSections = 64;
constexpr std::size_t kNamesPerBlock = 16;

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
}  // namespace

std::uint64_t pinorama::placesChecksum(std::span<const std::uint8_t> bytes)
{
    std::uint64_t sum = 0xcbf29ce484222325;
    while (!bytes.empty()) {
        std::uint8_t word[8] = {};
        const std::size_t count = std::min(bytes.size(), sizeof word);
        std::memcpy(word, bytes.data(), count);
        sum = (sum ^ load64(word)) * 0x100000001b3;
        sum ^= sum >> 32;
        bytes = bytes.subspan(count);
    }
    return sum;
}

std::optional<PlaceData> PlaceData::parse(std::span<const std::uint8_t> bytes)
{
    if (bytes.size() < kHeaderSize) return std::nullopt;
    const std::uint8_t* header = bytes.data();
    if (std::memcmp(header, kMagic.data(), kMagic.size()) != 0) return std::nullopt;
    if (load32(header + 8) != kVersion || load32(header + 24) != bytes.size()) return std::nullopt;
    const std::size_t summed = kPlacesChecksumAt + 8;
    if (load64(header + kPlacesChecksumAt) != placesChecksum(bytes.subspan(summed))) {
        return std::nullopt;
    }

    const std::uint32_t count = load32(header + 28);
    if (count > kMaxSections) return std::nullopt;
    if (bytes.size() - kHeaderSize < count * kEntrySize) return std::nullopt;
    PlaceData data;
    for (std::uint32_t index = 0; index < count; ++index) {
        const std::uint8_t* entry = header + kHeaderSize + index * kEntrySize;
        const std::uint64_t offset = load32(entry + 4);
        const std::uint64_t length = load32(entry + 8);
        if (offset + length > bytes.size()) return std::nullopt;
        // A section that a later version adds is passed over.
        for (const SectionRule& rule : kSections) {
            if (std::memcmp(entry, rule.name.data(), rule.name.size()) != 0) continue;
            data.*rule.section = PlaceSection(bytes.subspan(offset, length), rule.itemSize);
        }
    }
    return data;
}

std::string PlaceData::name(std::uint32_t index) const
{
    const std::uint8_t* block = nameBlocks.item(index / kNamesPerBlock);
    if (block == nullptr) return {};
    const std::span<const std::uint8_t> bytes = names.bytes();
    std::uint64_t at = load32(block);
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
