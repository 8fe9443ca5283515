#include "pictures/tiff_directory.h"

#include <algorithm>
#include <cstdint>

namespace pinorama {
namespace {
constexpr std::size_t kHeaderSize = 8;
constexpr std::size_t kBigHeaderSize = 16;
constexpr std::size_t kEntrySize = 12;
constexpr std::size_t kBigEntrySize = 20;
constexpr std::size_t kEntriesAtOnce = 256;

// The number after the byte order: 42, or a maker's own.
constexpr std::uint16_t kTiff = 42;
constexpr std::uint16_t kOlympus = 0x4f52;       // "IIRO", "MMOR"
constexpr std::uint16_t kOlympusSmall = 0x5352;  // "IIRS"
constexpr std::uint16_t kPanasonic = 0x0055;     // "IIU\0"
constexpr std::uint16_t kBigTiff = 43;
constexpr std::uint16_t kBigOffsetSize = 8;

bool isTiffNumber(std::uint16_t number)
{
    return number == kTiff || number == kOlympus || number == kOlympusSmall || number == kPanasonic;
}

// Bytes of one item; 0 for a type that TIFF, or BigTIFF, does not know.
std::uint64_t itemSize(std::uint16_t type, bool isBig)
{
    static constexpr std::uint8_t sizes[] = {0, 1, 1, 2, 4, 8, 1, 1, 2, 4, 8, 4, 8, 4};
    if (type == static_cast<std::uint16_t>(TiffType::utf8)) return 1;
    if (isBig && type >= 16 && type <= 18) return 8;
    return type < std::size(sizes) ? sizes[type] : 0;
}
}  // namespace

std::optional<TiffBlock> TiffBlock::open(const ByteBlock& block)
{
    const ByteView header = block.view(0, kHeaderSize);
    if (header.empty() || header[0] != header[1]) return std::nullopt;
    if (header[0] != 'I' && header[0] != 'M') return std::nullopt;
    const ByteOrder order = header[0] == 'M' ? ByteOrder::big : ByteOrder::little;
    if (!isTiffNumber(read16(order, &header[2]))) return std::nullopt;
    return TiffBlock(block, order, read32(order, &header[4]), false);
}

std::optional<TiffBlock> TiffBlock::openBig(const ByteBlock& block)
{
    const ByteView header = block.view(0, kBigHeaderSize);
    if (header.empty() || header[0] != header[1]) return std::nullopt;
    if (header[0] != 'I' && header[0] != 'M') return std::nullopt;
    const ByteOrder order = header[0] == 'M' ? ByteOrder::big : ByteOrder::little;
    const bool isBig = read16(order, &header[2]) == kBigTiff &&
                       read16(order, &header[4]) == kBigOffsetSize &&
                       read16(order, &header[6]) == 0;
    if (!isBig) return std::nullopt;
    return TiffBlock(block, order, read64(order, &header[8]), true);
}

std::size_t TiffBlock::findEntries(std::uint64_t offset, std::span<TiffEntry> wanted) const
{
    // A pointer of 0 means no directory, and none lies inside the header either.
    if (offset < kHeaderSize) return 0;
    const std::size_t countSize = isBig_ ? 8 : 2;
    const std::size_t entrySize = isBig_ ? kBigEntrySize : kEntrySize;
    const ByteView countBytes = block_.view(offset, countSize);
    if (countBytes.empty()) return 0;
    const std::uint64_t claimed =
        isBig_ ? read64(order_, countBytes.data()) : read16(order_, countBytes.data());
    std::uint64_t position = offset + countSize;
    // A directory that claims more entries than fit has those that fit, and never more than one
    // of TIFF can have.
    const std::size_t count =
        std::min<std::uint64_t>({claimed, (block_.length() - position) / entrySize, UINT16_MAX});

    std::size_t left = count;
    while (left != 0) {
        const std::size_t atOnce = std::min(left, kEntriesAtOnce);
        const ByteView entries = block_.view(position, atOnce * entrySize);
        if (entries.empty()) break;
        for (std::size_t index = 0; index < atOnce; ++index) {
            const std::uint8_t* bytes = &entries[index * entrySize];
            const std::uint16_t tag = read16(order_, bytes);
            for (TiffEntry& entry : wanted) {
                if (entry.tag != tag || entry.count != 0) continue;
                readEntry(bytes, position + index * entrySize, entry);
                break;
            }
        }
        position += entries.size();
        left -= atOnce;
    }
    return count - left;
}

void TiffBlock::readEntry(const std::uint8_t* bytes, std::uint64_t position, TiffEntry& entry) const
{
    const std::uint16_t type = read16(order_, bytes + 2);
    entry.type = static_cast<TiffType>(type);
    const std::uint64_t count = isBig_ ? read64(order_, bytes + 4) : read32(order_, bytes + 4);
    entry.count = static_cast<std::uint32_t>(std::min<std::uint64_t>(count, UINT32_MAX));
    // At most 2^32 items of 8 bytes: no overflow in 64 bits.
    const std::uint64_t size = entry.count * itemSize(type, isBig_);
    // Values that are no longer than an offset stand in the entry itself.
    const std::size_t valueAt = isBig_ ? 12 : 8;
    const std::uint64_t offsetSize = isBig_ ? 8 : 4;
    const std::uint8_t* const value = bytes + valueAt;
    std::uint64_t offset = position + valueAt;
    if (size > offsetSize) offset = isBig_ ? read64(order_, value) : read32(order_, value);
    entry.value = block_.part(offset, size);
}

std::optional<std::uint64_t> TiffBlock::directoryOf(const TiffEntry& entry) const
{
    const bool isHuge =
        entry.type == TiffType::hugeInteger || entry.type == TiffType::hugeDirectory;
    if (!isBig_ || !isHuge) return integerOf(entry);
    const ByteView bytes = entry.value.view(0, 8);
    if (bytes.empty()) return std::nullopt;
    return read64(order_, bytes.data());
}

std::optional<std::uint32_t> TiffBlock::integerOf(const TiffEntry& entry) const
{
    switch (entry.type) {
    case TiffType::byte:
    case TiffType::undefined: {
        const ByteView bytes = entry.value.view(0, 1);
        if (!bytes.empty()) return bytes[0];
        break;
    }
    case TiffType::shortInteger: {
        const ByteView bytes = entry.value.view(0, 2);
        if (!bytes.empty()) return read16(order_, bytes.data());
        break;
    }
    case TiffType::longInteger:
    case TiffType::signedLongInteger:
    case TiffType::directory: {
        const ByteView bytes = entry.value.view(0, 4);
        if (!bytes.empty()) return read32(order_, bytes.data());
        break;
    }
    default: break;
    }
    return std::nullopt;
}

}  // namespace pinorama
