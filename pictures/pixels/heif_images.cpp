#include "pictures/pixels/heif_images.h"

#include "pictures/byte_order.h"
#include "pictures/iso_item_tables.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace pinorama {
namespace {
constexpr std::uint64_t kMaxSide = 65536;  // pixels
constexpr std::int32_t kMaxTiles = 1024;

// Turns by quarters against the clock, as orientations.
constexpr Orientation kRotations[] = {1, 8, 3, 6};
// Top and bottom exchanged, left and right exchanged. The first edition of the standard named the
// axis instead, in words that could be read both ways; this is the meaning since its amendment 2.
// Source: ISO/IEC 23008-12:2022, 6.5.12.
constexpr Orientation kMirrors[] = {4, 2};

PixelSize sizeIn(const ByteBlock& ispe)
{
    IsoNumbers numbers(contentOfFullBox(ispe));
    const std::uint64_t width = numbers.next(4);
    const std::uint64_t height = numbers.next(4);
    if (width > kMaxSide || height > kMaxSide) return {};
    return {static_cast<std::int32_t>(width), static_cast<std::int32_t>(height)};
}

std::optional<ColourCoding> coloursIn(const ByteBlock& colr)
{
    IsoNumbers numbers(colr);
    if (numbers.next(4) != boxType("nclx")) return std::nullopt;
    ColourCoding colours;
    colours.primaries = static_cast<int>(numbers.next(2));
    colours.transfer = static_cast<int>(numbers.next(2));
    colours.matrix = static_cast<int>(numbers.next(2));
    colours.isFullRange = (numbers.next(1) & 0x80) != 0;
    if (numbers.hasFailed()) return std::nullopt;
    return colours;
}

// The ICC profile in it, if that is what it holds.
ByteBlock profileIn(const ByteBlock& colr)
{
    IsoNumbers numbers(colr);
    const std::uint64_t kind = numbers.next(4);
    const bool isProfile = kind == boxType("prof") || kind == boxType("rICC");
    return isProfile ? colr.from(4) : ByteBlock();
}

// Nothing if a number is no fraction.
std::optional<HeifChange::Part> partIn(const ByteBlock& clap)
{
    IsoNumbers numbers(clap);
    double fractions[4] = {};
    for (double& fraction : fractions) {
        const auto above = static_cast<std::int32_t>(numbers.next(4));
        const auto below = static_cast<std::int32_t>(numbers.next(4));
        if (below <= 0) return std::nullopt;
        fraction = static_cast<double>(above) / below;
    }
    return HeifChange::Part{fractions[0], fractions[1], fractions[2], fractions[3]};
}

void apply(const IsoBox& property, HeifImage& image)
{
    const ByteView first = property.content.view(0, 1);
    switch (property.type) {
    case boxType("ispe"): image.size = sizeIn(property.content); break;
    case boxType("hvcC"): image.configuration = property.content; break;
    case boxType("colr"):
        if (const auto colours = coloursIn(property.content)) image.colours = colours;
        if (image.profile.isEmpty()) image.profile = profileIn(property.content);
        break;
    case boxType("clap"):
        if (const auto part = partIn(property.content)) image.changes.push_back({1, part});
        break;
    case boxType("irot"):
        if (!first.empty()) image.changes.push_back({kRotations[first[0] & 3], {}});
        break;
    case boxType("imir"):
        if (!first.empty()) image.changes.push_back({kMirrors[first[0] & 1], {}});
        break;
    default: break;
    }
}
}  // namespace

PixelArea HeifChange::keptOf(PixelSize size) const
{
    const PixelArea whole = {0, 0, size.width, size.height};
    if (!part) return whole;
    const double left = (size.width - part->width) / 2 + part->right;
    const double top = (size.height - part->height) / 2 + part->down;
    constexpr double kRounding = 0.5;
    const bool isInside = part->width >= 1 && part->height >= 1 && left > -kRounding &&
                          top > -kRounding && left + part->width < size.width + kRounding &&
                          top + part->height < size.height + kRounding;
    if (!isInside) return whole;
    PixelArea kept;
    kept.left = std::max(static_cast<std::int32_t>(std::lround(left)), 0);
    kept.top = std::max(static_cast<std::int32_t>(std::lround(top)), 0);
    kept.right = std::min(
        kept.left + std::max(static_cast<std::int32_t>(std::lround(part->width)), 1), size.width);
    kept.bottom = std::min(
        kept.top + std::max(static_cast<std::int32_t>(std::lround(part->height)), 1), size.height);
    return kept.left < kept.right && kept.top < kept.bottom ? kept : whole;
}

PixelSize HeifImage::sizeAfterChanges(PixelSize stored) const
{
    PixelSize after = stored;
    for (const HeifChange& change : changes) {
        const PixelArea kept = change.keptOf(after);
        after = {kept.right - kept.left, kept.bottom - kept.top};
        if (pinorama::isTransposed(change.turn)) std::swap(after.width, after.height);
    }
    return after;
}

bool HeifImage::isTransposed() const
{
    return std::count_if(
               changes.begin(), changes.end(),
               [](const HeifChange& change) { return pinorama::isTransposed(change.turn); }) %
               2 !=
           0;
}

std::optional<HeifGrid> gridOf(const HeifImage& image)
{
    if (image.type != boxType("grid")) return std::nullopt;
    IsoNumbers numbers(image.bytes);
    numbers.next(1);  // version
    const std::size_t sideSize = (numbers.next(1) & 1) != 0 ? 4 : 2;
    HeifGrid grid;
    grid.rows = static_cast<std::int32_t>(numbers.next(1)) + 1;
    grid.columns = static_cast<std::int32_t>(numbers.next(1)) + 1;
    const std::uint64_t width = numbers.next(sideSize);
    const std::uint64_t height = numbers.next(sideSize);
    if (numbers.hasFailed() || width == 0 || height == 0 || width > kMaxSide || height > kMaxSide) {
        return std::nullopt;
    }
    const std::int32_t count = grid.rows * grid.columns;
    if (count > kMaxTiles || image.tiles.size() < static_cast<std::size_t>(count)) {
        return std::nullopt;
    }
    grid.size = {static_cast<std::int32_t>(width), static_cast<std::int32_t>(height)};
    return grid;
}

HeifImages::HeifImages(const ByteBlock& file)
{
    StepBudget budget;
    IsoBoxes boxes(file, budget);
    while (const std::optional<IsoBox> box = boxes.next()) {
        if (box->type != boxType("meta")) continue;
        readMeta(box->content, file, budget);
        return;
    }
}

void HeifImages::readMeta(const ByteBlock& meta, const ByteBlock& file, StepBudget& budget)
{
    const IsoItemTables tables = findIsoItemTables(meta, budget);
    IsoNumbers primary(tables.primary);
    const std::uint64_t version = primary.next(1);
    primary.next(3);
    primary_ = static_cast<std::uint32_t>(primary.next(version == 0 ? 2 : 4));

    IsoItemInfos infos(tables.infos, budget);
    while (const std::optional<IsoItemInfo> info = infos.next())
        items_[info->item].type = info->type;
    IsoItemLocations locations(tables.locations);
    while (const std::optional<IsoItemLocation> location = locations.next()) {
        const auto item = items_.find(location->item);
        if (item != items_.end()) item->second.bytes = location->bytesIn(file, tables);
    }
    readReferences(tables.references, budget);
    readProperties(tables.properties, budget);
}

void HeifImages::readReferences(const ByteBlock& iref, StepBudget& budget)
{
    const ByteView version = iref.view(0, 1);
    const std::size_t idSize = !version.empty() && version[0] != 0 ? 4 : 2;
    IsoBoxes boxes(contentOfFullBox(iref), budget);
    while (const std::optional<IsoBox> box = boxes.next()) {
        if (box->type != boxType("thmb") && box->type != boxType("dimg")) continue;
        IsoNumbers numbers(box->content);
        Reference reference = {box->type, static_cast<std::uint32_t>(numbers.next(idSize)), {}};
        for (std::uint64_t left = numbers.next(2); left > 0; left--) {
            const auto item = static_cast<std::uint32_t>(numbers.next(idSize));
            if (numbers.hasFailed()) break;
            reference.to.push_back(item);
        }
        references_.push_back(std::move(reference));
    }
}

void HeifImages::readProperties(const ByteBlock& iprp, StepBudget& budget)
{
    IsoBoxes boxes(iprp, budget);
    while (const std::optional<IsoBox> box = boxes.next()) {
        if (box->type == boxType("ipma")) readAssociations(box->content);
        if (box->type != boxType("ipco")) continue;
        IsoBoxes properties(box->content, budget);
        while (const std::optional<IsoBox> property = properties.next()) {
            properties_.push_back(*property);
        }
    }
}

void HeifImages::readAssociations(const ByteBlock& ipma)
{
    IsoNumbers numbers(ipma);
    const std::size_t idSize = numbers.next(1) == 0 ? 2 : 4;
    const bool isWide = (numbers.next(3) & 1) != 0;
    for (std::uint64_t left = numbers.next(4); left > 0 && !numbers.hasFailed(); left--) {
        const auto item = items_.find(static_cast<std::uint32_t>(numbers.next(idSize)));
        for (std::uint64_t more = numbers.next(1); more > 0; more--) {
            // The highest bit says that whoever does not know the property leaves the item alone.
            const std::uint64_t index = numbers.next(isWide ? 2 : 1) & (isWide ? 0x7fff : 0x7f);
            if (item != items_.end()) item->second.properties.push_back(index);
        }
    }
}

std::vector<HeifImage> HeifImages::thumbnails() const
{
    std::vector<HeifImage> thumbnails;
    for (const Reference& reference : references_) {
        if (reference.type != boxType("thmb")) continue;
        if (std::find(reference.to.begin(), reference.to.end(), primary_) == reference.to.end()) {
            continue;
        }
        if (auto found = image(reference.from)) thumbnails.push_back(std::move(*found));
    }
    return thumbnails;
}

std::optional<HeifImage> HeifImages::image(std::uint32_t item) const
{
    const auto found = items_.find(item);
    if (found == items_.end()) return std::nullopt;
    HeifImage image;
    image.type = found->second.type;
    image.bytes = found->second.bytes;
    for (const std::size_t index : found->second.properties) {
        if (index > 0 && index <= properties_.size()) apply(properties_[index - 1], image);
    }
    for (const Reference& reference : references_) {
        if (reference.type == boxType("dimg") && reference.from == item) image.tiles = reference.to;
    }
    return image;
}

}  // namespace pinorama
