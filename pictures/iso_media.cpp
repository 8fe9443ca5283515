#include "pictures/iso_media.h"

#include "pictures/byte_order.h"
#include "pictures/iso_boxes.h"
#include "pictures/iso_items.h"
#include "pictures/tiff_directory.h"
#include "pictures/video_place.h"

#include <algorithm>

namespace pinorama {
namespace {
constexpr std::uint64_t kUuidSize = 16;
// Boxes of the type `uuid` begin with what they really are.
constexpr std::uint8_t kXmpUuid[kUuidSize] = {0xbe, 0x7a, 0xcf, 0xcb, 0x97, 0xa9, 0x42, 0xe8,
                                              0x9c, 0x71, 0x99, 0x94, 0x91, 0xe3, 0xaf, 0xac};
constexpr std::uint8_t kCanonUuid[kUuidSize] = {0x85, 0xc0, 0xb6, 0x87, 0x82, 0x0f, 0x11, 0xe0,
                                                0x81, 0x11, 0xf4, 0xce, 0x46, 0x2b, 0x6a, 0x48};

void takeFirst(ByteBlock& part, const ByteBlock& found)
{
    if (part.isEmpty()) part = found;
}

// CMT1 is the first directory of the picture, CMT4 that of the GPS; each is a TIFF block.
void readCanonBoxes(const ByteBlock& boxes, StepBudget& budget, EmbeddedMetadata& metadata)
{
    IsoBoxes steps(boxes, budget);
    while (const std::optional<IsoBox> box = steps.next()) {
        if (box->type == boxType("CMT1")) takeFirst(metadata.exif, box->content);
        if (box->type == boxType("CMT4")) takeFirst(metadata.gps, box->content);
    }
}

void readUserData(const ByteBlock& udta, StepBudget& budget, EmbeddedMetadata& metadata)
{
    IsoBoxes steps(udta, budget);
    while (const std::optional<IsoBox> box = steps.next()) {
        if (box->type == boxType("XMP_")) takeFirst(metadata.xmp, box->content);
    }
}

void readUuid(const ByteBlock& box, StepBudget& budget, EmbeddedMetadata& metadata)
{
    const ByteBlock content = box.from(kUuidSize);
    if (box.beginsWith(kXmpUuid)) takeFirst(metadata.xmp, content);
    if (box.beginsWith(kCanonUuid)) readCanonBoxes(content, budget, metadata);
}

// The type of the box, and what it holds as Brotli packs it.
// Source: ISO/IEC 18181-2, 9.4 (brob).
void readPackedBox(const ByteBlock& brob, EmbeddedMetadata& metadata)
{
    const ByteView type = brob.view(0, 4);
    if (type.empty()) return;
    const PackedPart part = {brob.from(4), Packing::brotli};
    if (bigEndian32(type.data()) == boxType("Exif")) metadata.packedExif = part;
    if (bigEndian32(type.data()) == boxType("xml ")) metadata.packedXmp = part;
}

// In one pass: between its boxes there may be megabytes about the film.
void readMovie(const ByteBlock& moov, StepBudget& budget, EmbeddedMetadata& metadata)
{
    MovieBoxes found;
    IsoBoxes steps(moov, budget);
    while (const std::optional<IsoBox> box = steps.next()) {
        if (box->type == boxType("uuid")) readUuid(box->content, budget, metadata);
        if (box->type == boxType("meta")) takeFirst(found.meta, box->content);
        if (box->type == boxType("udta")) takeFirst(found.udta, box->content);
    }
    readUserData(found.udta, budget, metadata);
    if (!metadata.place) metadata.place = findVideoPlace(found, budget);
}
}  // namespace

bool isIsoMedia(const ByteBlock& file)
{
    const ByteView start = file.view(0, 12);
    if (start.empty()) return false;
    const std::uint32_t first = bigEndian32(&start[4]);
    static constexpr std::uint32_t kFirstBoxes[] = {
        boxType("ftyp"), boxType("moov"), boxType("mdat"), boxType("wide"),
        boxType("free"), boxType("skip"), boxType("pnot")};
    if (std::find(std::begin(kFirstBoxes), std::end(kFirstBoxes), first) != std::end(kFirstBoxes)) {
        return true;
    }
    static constexpr std::uint8_t kJxl[] = {0,   0,   0,    12,   'J',  'X',
                                            'L', ' ', 0x0d, 0x0a, 0x87, 0x0a};
    return file.beginsWith(kJxl);
}

EmbeddedMetadata findIsoMetadata(const ByteBlock& file)
{
    EmbeddedMetadata metadata;
    StepBudget budget;
    IsoBoxes boxes(file, budget);
    while (const std::optional<IsoBox> box = boxes.next()) {
        switch (box->type) {
        case boxType("meta"): findIsoItems(box->content, file, budget, metadata); break;
        case boxType("moov"): readMovie(box->content, budget, metadata); break;
        case boxType("uuid"): readUuid(box->content, budget, metadata); break;
        case boxType("Exif"): takeFirst(metadata.exif, tiffInOffsetExif(box->content)); break;
        case boxType("xml "): takeFirst(metadata.xmp, box->content); break;
        case boxType("brob"): readPackedBox(box->content, metadata); break;
        default: break;
        }
    }
    return metadata;
}

}  // namespace pinorama
