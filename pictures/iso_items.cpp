#include "pictures/iso_items.h"

#include "pictures/byte_order.h"
#include "pictures/iso_boxes.h"

#include <algorithm>
#include <array>
#include <optional>
#include <span>

namespace pinorama {
namespace {
// A picture of many tiles has a few thousand items of some 20 bytes each.
constexpr std::uint64_t kMaxTableLength = 128 * 1024;

// Reads numbers one after the other; what is missing is 0, and the table has failed.
class Table {
public:
    explicit Table(const ByteBlock& block) : block_(block.part(0, kMaxTableLength)) {}

    std::uint64_t number(std::size_t size)
    {
        const ByteView bytes = block_.view(position_, size);
        hasFailed_ |= bytes.size() != size;
        position_ += size;
        std::uint64_t value = 0;
        for (const std::uint8_t byte : bytes) value = value << 8 | byte;
        return value;
    }

    bool hasFailed() const { return hasFailed_; }
    ByteBlock rest() const { return block_.from(position_); }

private:
    ByteBlock block_;
    std::uint64_t position_ = 0;
    bool hasFailed_ = false;
};

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

void readItemInfo(const ByteBlock& info, Items& items)
{
    Table table(info);
    const std::uint64_t version = table.number(1);
    table.number(3);
    if (version != 2 && version != 3) return;  // the older ones have no types
    const auto item = static_cast<std::uint32_t>(table.number(version == 2 ? 2 : 4));
    table.number(2);  // protection
    const std::uint64_t type = table.number(4);
    if (table.hasFailed()) return;
    if (type == boxType("Exif") && !items.exif) items.exif = item;
    if (type == boxType("mime") && !items.xmp && isXmp(table.rest())) items.xmp = item;
}

Items findItemNumbers(const ByteBlock& iinf, StepBudget& budget)
{
    Table table(iinf);
    const std::uint64_t version = table.number(1);
    table.number(3);
    table.number(version == 0 ? 2 : 4);  // how many there are; the box says it, too
    Items items;
    IsoBoxes entries(table.rest(), budget);
    while (const std::optional<IsoBox> entry = entries.next()) {
        if (entry->type == boxType("infe")) readItemInfo(entry->content, items);
    }
    return items;
}

// Where one item is.
struct Location {
    std::uint32_t item = 0;
    std::uint64_t method = 0;  // 0 in the file, 1 in the box `idat`
    std::uint64_t reference = 0;
    std::uint64_t extents = 0;
    std::uint64_t offset = 0;
    std::uint64_t length = 0;
};

class Locations {
public:
    explicit Locations(const ByteBlock& iloc) : table_(iloc)
    {
        version_ = table_.number(1);
        table_.number(3);
        const std::uint64_t sizes = table_.number(2);
        offsetSize_ = sizes >> 12;
        lengthSize_ = sizes >> 8 & 15;
        baseSize_ = sizes >> 4 & 15;
        indexSize_ = version_ == 0 ? 0 : sizes & 15;
        left_ = table_.number(version_ < 2 ? 2 : 4);
        const bool isSound = version_ <= 2 && std::max({offsetSize_, lengthSize_, baseSize_,
                                                        indexSize_}) <= kMaxNumberSize;
        if (!isSound) left_ = 0;
    }

    std::optional<Location> next()
    {
        if (left_ == 0) return std::nullopt;
        --left_;
        Location location;
        location.item = static_cast<std::uint32_t>(table_.number(version_ < 2 ? 2 : 4));
        if (version_ > 0) location.method = table_.number(2) & 15;
        location.reference = table_.number(2);
        const std::uint64_t base = table_.number(baseSize_);
        location.extents = table_.number(2);
        for (std::uint64_t i = 0; i < location.extents && !table_.hasFailed(); i++) {
            table_.number(indexSize_);
            location.offset = base + table_.number(offsetSize_);
            location.length = table_.number(lengthSize_);
        }
        if (table_.hasFailed()) return std::nullopt;
        return location;
    }

private:
    static constexpr std::uint64_t kMaxNumberSize = 8;

    Table table_;
    std::uint64_t version_ = 0;
    std::uint64_t offsetSize_ = 0;
    std::uint64_t lengthSize_ = 0;
    std::uint64_t baseSize_ = 0;
    std::uint64_t indexSize_ = 0;
    std::uint64_t left_ = 0;
};

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
    ByteBlock iinf;
    ByteBlock iloc;
    ByteBlock idat;
    IsoBoxes boxes(childrenOfMeta(meta), budget);
    while (const std::optional<IsoBox> box = boxes.next()) {
        if (box->type == boxType("iinf")) iinf = box->content;
        if (box->type == boxType("iloc")) iloc = box->content;
        if (box->type == boxType("idat")) idat = box->content;
    }
    const Items items = findItemNumbers(iinf, budget);
    Locations locations(iloc);
    // Found out before any item is looked into, as the table is in one place and they are not.
    ByteBlock exif;
    ByteBlock xmp;
    while (const std::optional<Location> location = locations.next()) {
        if (location->extents != 1 || location->reference != 0 || location->method > 1) continue;
        const ByteBlock& home = location->method == 1 ? idat : file;
        const ByteBlock item = home.part(location->offset, location->length);
        if (items.exif == location->item) exif = item;
        if (items.xmp == location->item) xmp = item;
    }
    if (metadata.exif.isEmpty()) metadata.exif = tiffInExifItem(exif);
    if (metadata.xmp.isEmpty()) metadata.xmp = xmp;
}

}  // namespace pinorama
