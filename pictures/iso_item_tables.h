// The tables in which the `meta` box of a HEIF file lists its items, which are its images and what
// belongs to them: what each is, where its bytes are, and how they refer to each other.
//
//     const IsoItemTables tables = findIsoItemTables(meta, budget);
//     IsoItemInfos infos(tables.infos, budget);
//     while (const std::optional<IsoItemInfo> info = infos.next()) ...
//
// Source: ISO/IEC 14496-12, 8.11; ISO/IEC 23008-12.

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

#include "pictures/byte_source.h"
#include "pictures/iso_boxes.h"
#include "pictures/step_budget.h"

namespace pinorama {

// Numbers that stand one after the other, most significant byte first.
class IsoNumbers {
public:
    // A picture of many tiles has a few thousand items of some 20 bytes each. What lies beyond this
    // length is not there.
    static constexpr std::uint64_t kMaxLength = 128 * 1024;

    explicit IsoNumbers(const ByteBlock& block) : block_(block.part(0, kMaxLength)) {}

    // The next number, of `size` bytes, 0 to 8. What is missing is 0, and the reading has failed.
    std::uint64_t next(std::size_t size);

    bool hasFailed() const { return hasFailed_; }
    ByteBlock rest() const { return block_.from(position_); }

private:
    ByteBlock block_;
    std::uint64_t position_ = 0;
    bool hasFailed_ = false;
};

// The contents of the boxes; empty if there is no such box.
struct IsoItemTables {
    ByteBlock primary;     // pitm: which item is the picture
    ByteBlock infos;       // iinf
    ByteBlock locations;   // iloc
    ByteBlock data;        // idat: bytes of items that are not elsewhere in the file
    ByteBlock references;  // iref
    ByteBlock properties;  // iprp
};

IsoItemTables findIsoItemTables(const ByteBlock& meta, StepBudget& budget);

struct IsoItemInfo {
    std::uint32_t item;       // its number
    std::uint32_t type;       // boxType("Exif")
    ByteBlock nameAndDetail;  // its name and, of type `mime`, a content type; both end at a zero
};

class IsoItemInfos {
public:
    IsoItemInfos(const ByteBlock& iinf, StepBudget& budget);

    // The next item that says its type.
    std::optional<IsoItemInfo> next();

private:
    IsoBoxes entries_;
};

// Where the bytes of one item are.
struct IsoItemLocation {
    std::uint32_t item = 0;
    std::uint64_t method = 0;  // 0 in the file, 1 in IsoItemTables::data
    std::uint64_t reference = 0;
    std::uint64_t extents = 0;  // pieces
    std::uint64_t offset = 0;   // of the last piece; so is the length
    std::uint64_t length = 0;

    // The bytes, if they are in one piece and in this file.
    ByteBlock bytesIn(const ByteBlock& file, const IsoItemTables& tables) const;
};

class IsoItemLocations {
public:
    explicit IsoItemLocations(const ByteBlock& iloc);

    // Nothing after the last, and at the first that is malformed.
    std::optional<IsoItemLocation> next();

private:
    IsoNumbers numbers_;
    std::uint64_t version_ = 0;
    std::uint64_t offsetSize_ = 0;
    std::uint64_t lengthSize_ = 0;
    std::uint64_t baseSize_ = 0;
    std::uint64_t indexSize_ = 0;
    std::uint64_t left_ = 0;
};

}  // namespace pinorama
