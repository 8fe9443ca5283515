#include "pictures/iso_items.h"

#include "pictures/byte_order.h"
#include "pictures/iso_boxes.h"
#include "pictures/iso_item_tables.h"

#include <algorithm>
#include <iterator>
#include <optional>

namespace pinorama {
namespace {
// The numbers of the items that are looked for.
struct Items {
    std::optional<std::uint32_t> exif;
    std::optional<std::uint32_t> xmp;
};

// True for the content type of XMP after the name of an item; both end at a zero byte.
bool isXmp(const ByteBlock& nameAndType)
{
    static constexpr char kType[] = "application/rdf+xml";
    constexpr std::uint64_t kMaxNameLength = 256;
    const ByteView bytes =
        nameAndType.view(0, std::min(nameAndType.length(), kMaxNameLength + sizeof kType));
    const auto end = std::find(bytes.begin(), bytes.end(), std::uint8_t{0});
    if (bytes.end() - end < static_cast<std::ptrdiff_t>(sizeof kType)) return false;
    return std::equal(std::begin(kType), std::end(kType) - 1, end + 1);
}

Items findItemNumbers(const ByteBlock& iinf, StepBudget& budget)
{
    Items items;
    IsoItemInfos infos(iinf, budget);
    while (const std::optional<IsoItemInfo> info = infos.next()) {
        const bool isMime = info->type == boxType("mime");
        if (info->type == boxType("Exif") && !items.exif) items.exif = info->item;
        if (isMime && !items.xmp && isXmp(info->nameAndDetail)) items.xmp = info->item;
    }
    return items;
}

// An Exif item begins with the number of bytes between that number and its TIFF header.
ByteBlock tiffInExifItem(const ByteBlock& item)
{
    const ByteView offset = item.view(0, 4);
    if (offset.empty()) return {};
    const ByteBlock content = item.from(4);
    const ByteBlock tiff = tiffInExifPart(content.from(bigEndian32(offset.data())));
    // Some writers count wrongly; the header is where it always is then.
    return tiff.isEmpty() ? tiffInExifPart(content) : tiff;
}
}  // namespace

void findIsoItems(const ByteBlock& meta, const ByteBlock& file, StepBudget& budget,
                  EmbeddedMetadata& metadata)
{
    const IsoItemTables tables = findIsoItemTables(meta, budget);
    const Items items = findItemNumbers(tables.infos, budget);
    IsoItemLocations locations(tables.locations);
    // Found out before any item is looked into, as the table is in one place and they are not.
    ByteBlock exif;
    ByteBlock xmp;
    while (const std::optional<IsoItemLocation> location = locations.next()) {
        if (items.exif == location->item) exif = location->bytesIn(file, tables);
        if (items.xmp == location->item) xmp = location->bytesIn(file, tables);
    }
    if (metadata.exif.isEmpty()) metadata.exif = tiffInExifItem(exif);
    if (metadata.xmp.isEmpty()) metadata.xmp = xmp;
}

}  // namespace pinorama
