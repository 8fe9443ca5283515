// The boxes of ISO base media files: HEIC, AVIF, CR3, JPEG XL, MOV and MP4 are chains of named
// boxes that hold data or other boxes.

#pragma once

#include <cstdint>
#include <optional>

#include "pictures/byte_source.h"
#include "pictures/step_budget.h"

namespace pinorama {

// The four letters of a box's name as a number.
constexpr std::uint32_t boxType(const char (&name)[5])
{
    std::uint32_t type = 0;
    for (int i = 0; i < 4; i++) type = type << 8 | static_cast<std::uint8_t>(name[i]);
    return type;
}

struct IsoBox {
    std::uint32_t type;
    ByteBlock content;  // what follows the header, cut at the end of the box around it
};

// Steps from box to box.
//
//     IsoBoxes boxes(moov, budget);
//     while (const std::optional<IsoBox> box = boxes.next()) ...
class IsoBoxes {
public:
    // `budget` is that of the whole file and outlives the steps.
    IsoBoxes(const ByteBlock& parent, StepBudget& budget) : parent_(parent), budget_(budget) {}

    // Nothing after the last box, at the first that is malformed, and when the budget is used up.
    // Source: ISO/IEC 14496-12, 4.2.
    std::optional<IsoBox> next();

private:
    ByteBlock parent_;
    StepBudget& budget_;
    std::uint64_t position_ = 0;
};

// The content of a box that begins with a version and flags, without those four bytes.
inline ByteBlock contentOfFullBox(const ByteBlock& box)
{
    constexpr std::uint64_t kVersionAndFlags = 4;
    return box.from(kVersionAndFlags);
}

// The children of a `meta` box: it begins with version and flags in ISO files, and with the first
// child in QuickTime files.
ByteBlock childrenOfMeta(const ByteBlock& meta);

}  // namespace pinorama
