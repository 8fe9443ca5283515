#include "pictures/pixels/cr3_jpegs.h"

#include "pictures/byte_order.h"
#include "pictures/iso_boxes.h"

#include <cstdint>

namespace pinorama {
namespace {
constexpr std::uint64_t kUuidSize = 16;
// Boxes of the type `uuid` begin with what they really are.
constexpr std::uint8_t kCanonUuid[kUuidSize] = {0x85, 0xc0, 0xb6, 0x87, 0x82, 0x0f, 0x11, 0xe0,
                                                0x81, 0x11, 0xf4, 0xce, 0x46, 0x2b, 0x6a, 0x48};
constexpr std::uint8_t kPreviewUuid[kUuidSize] = {0xea, 0xf4, 0x2b, 0x5e, 0x1c, 0x98, 0x4b, 0x88,
                                                  0xb9, 0xfb, 0xb7, 0xdc, 0x40, 0x6e, 0x4d, 0x16};
constexpr std::uint64_t kBeforePreview = 8;  // bytes between the name and the box
constexpr std::uint64_t kJpegAt = 16;        // in both boxes
constexpr std::uint64_t kThumbnailLengthAt = 8;
constexpr std::uint64_t kPreviewLengthAt = 12;

void addStream(const ByteBlock& box, std::uint64_t lengthAt, EmbeddedJpegs& found)
{
    const ByteView length = box.view(lengthAt, 4);
    if (!length.empty()) found.streams.push_back(box.part(kJpegAt, bigEndian32(length.data())));
}

void readBoxes(const ByteBlock& parent, StepBudget& budget, EmbeddedJpegs& found)
{
    IsoBoxes boxes(parent, budget);
    while (const std::optional<IsoBox> box = boxes.next()) {
        if (box->type == boxType("CMT1")) {
            found.orientation = findEmbeddedJpegs(box->content).orientation;
        }
        if (box->type == boxType("THMB")) addStream(box->content, kThumbnailLengthAt, found);
        if (box->type == boxType("PRVW")) addStream(box->content, kPreviewLengthAt, found);
    }
}

void readMovie(const ByteBlock& moov, StepBudget& budget, EmbeddedJpegs& found)
{
    IsoBoxes boxes(moov, budget);
    while (const std::optional<IsoBox> box = boxes.next()) {
        if (box->type == boxType("uuid") && box->content.beginsWith(kCanonUuid)) {
            readBoxes(box->content.from(kUuidSize), budget, found);
        }
    }
}
}  // namespace

EmbeddedJpegs findCr3Jpegs(const ByteBlock& file)
{
    EmbeddedJpegs found;
    StepBudget budget;
    IsoBoxes boxes(file, budget);
    while (const std::optional<IsoBox> box = boxes.next()) {
        if (box->type == boxType("moov")) readMovie(box->content, budget, found);
        if (box->type == boxType("uuid") && box->content.beginsWith(kPreviewUuid)) {
            readBoxes(box->content.from(kUuidSize + kBeforePreview), budget, found);
        }
    }
    return found;
}

}  // namespace pinorama
