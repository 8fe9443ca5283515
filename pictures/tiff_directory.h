// TIFF as a container: the header and the directories of tagged values. JPEG pictures carry a small
// TIFF block with their Exif data, and most raw formats are TIFF files with a header of their own.

#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "pictures/byte_order.h"
#include "pictures/byte_source.h"

namespace pinorama {

// The types of values that are read here.
enum class TiffType : std::uint16_t {
    byte = 1,
    ascii = 2,
    shortInteger = 3,
    longInteger = 4,
    rational = 5,
    undefined = 7,
    signedLongInteger = 9,
    signedRational = 10,
    directory = 13,    // a long integer that points to a directory
    hugeInteger = 16,  // of 8 bytes, in BigTIFF
    hugeDirectory = 18,
    utf8 = 129,  // text, since Exif 3.0
};

// One value of a directory. Set `tag` before asking for it.
struct TiffEntry {
    std::uint16_t tag;
    TiffType type{};          // as the file has it, known here or not
    std::uint32_t count = 0;  // items, as the file claims; 0 when the directory has no such tag
    ByteBlock value{};        // the bytes that are there: at most count items, fewer at the end
};

// A block with a TIFF header. All its offsets count from the header.
class TiffBlock {
public:
    // Nothing when `block` does not begin with a TIFF header. Besides "II*\0" and "MM\0*" these are
    // Olympus' "IIRO", "IIRS" and "MMOR" and Panasonic's "IIU\0".
    static std::optional<TiffBlock> open(const ByteBlock& block);

    // The same for BigTIFF, whose offsets and counts have 8 bytes: "II+\0" and "MM\0+".
    // Source: BigTIFF as libtiff 4 writes it,
    // https://libtiff.gitlab.io/libtiff/specification/bigtiff.html
    static std::optional<TiffBlock> openBig(const ByteBlock& block);

    ByteOrder order() const { return order_; }
    std::uint64_t firstDirectory() const { return firstDirectory_; }

    // Looks the `wanted` tags up in the directory at `offset`. The first of several entries of one
    // tag counts. Returns the number of entries that the directory has, 0 when it lies outside the
    // block.
    std::size_t findEntries(std::uint64_t offset, std::span<TiffEntry> wanted) const;

    // The first item of a whole-number value; nothing for another type or when it is not there.
    // A signed number is taken by its bits: some programs write the pointer to a directory so.
    std::optional<std::uint32_t> integerOf(const TiffEntry& entry) const;

    // The same where it is the offset of a directory, which may have 8 bytes.
    std::optional<std::uint64_t> directoryOf(const TiffEntry& entry) const;

private:
    TiffBlock(const ByteBlock& block, ByteOrder order, std::uint64_t firstDirectory, bool isBig)
        : block_(block), order_(order), firstDirectory_(firstDirectory), isBig_(isBig)
    {
    }

    void readEntry(const std::uint8_t* bytes, std::uint64_t position, TiffEntry& entry) const;

    ByteBlock block_;
    ByteOrder order_;
    std::uint64_t firstDirectory_;
    bool isBig_;
};

}  // namespace pinorama
