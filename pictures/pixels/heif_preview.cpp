#include "pictures/pixels/heif_preview.h"

#include "pictures/pixels/heif_images.h"
#include "pictures/pixels/hevc_image.h"
#include "pictures/pixels/jpeg_decode.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace pinorama {
namespace {
constexpr std::uint32_t kMissing = 0xff808080;  // gray, as in JPEG pictures that are cut off
constexpr double kAspectTolerance = 0.03;
// One row of tiles is in memory at a time.
constexpr std::int64_t kMaxPixelsOfTiles = 64 << 20;

// An image that may become the preview, with the size that it has when it is upright.
struct Candidate {
    HeifImage image;
    PixelSize size{};
    bool isPicture = false;
};

PixelSize transposedIf(bool isTransposed, PixelSize size)
{
    return isTransposed ? PixelSize{size.height, size.width} : size;
}

Candidate candidateOf(HeifImage image, bool isPicture)
{
    PixelSize stored = image.size;
    if (image.type == boxType("jpeg")) stored = jpegSize(image.bytes);
    if (const auto grid = gridOf(image)) stored = grid->size;
    const PixelSize size = transposedIf(image.isTransposed(), stored);
    return {std::move(image), size, isPicture};
}

// Nobody sees the filters of an image that is shown at less than half of its size.
bool isQuick(PixelSize size, PixelSize wanted)
{
    return wanted.width < size.width / 2;
}

std::optional<PixelImage> decodeHevc(const HeifImage& image, PixelSize box)
{
    const auto decoded = HevcImage::decode(image, isQuick(image.size, fitInto(image.size, box)));
    if (!decoded) return std::nullopt;
    const PixelSize size = decoded->size();
    RowScaler scaler(size, fitInto(size, box));
    std::vector<std::uint32_t> row(static_cast<std::size_t>(size.width));
    while (scaler.rowsMissing() > 0) {
        decoded->readRow(size.height - scaler.rowsMissing(), row.data());
        scaler.addRow(row.data());
    }
    return scaler.take(kMissing);
}

// The tiles of one row of a grid; fewer when one cannot be decoded or is not as large as `size`,
// which is that of the first tile if it is not known yet.
std::vector<HevcImage> decodeTiles(const HeifImages& images, const std::uint32_t* items,
                                   std::int32_t count, bool quick, PixelSize* size)
{
    std::vector<HevcImage> tiles;
    for (std::int32_t i = 0; i < count; i++) {
        const std::optional<HeifImage> tile = images.image(items[i]);
        if (!tile || tile->type != boxType("hvc1")) break;
        std::optional<HevcImage> decoded = HevcImage::decode(*tile, quick);
        if (!decoded) break;
        if (size->width == 0) *size = decoded->size();
        const std::int64_t pixels = std::int64_t{size->width} * size->height * count;
        if (decoded->size() != *size || pixels > kMaxPixelsOfTiles) break;
        tiles.push_back(std::move(*decoded));
    }
    return tiles;
}

std::optional<PixelImage> decodeGrid(const HeifImages& images, const HeifImage& image,
                                     PixelSize box)
{
    const std::optional<HeifGrid> grid = gridOf(image);
    if (!grid) return std::nullopt;
    const PixelSize wanted = fitInto(grid->size, box);
    const bool quick = isQuick(grid->size, wanted);
    RowScaler scaler(grid->size, wanted);
    std::vector<std::uint32_t> row;
    PixelSize tile;
    for (std::int32_t i = 0; i < grid->rows && scaler.rowsMissing() > 0; i++) {
        const std::vector<HevcImage> tiles =
            decodeTiles(images, &image.tiles[static_cast<std::size_t>(i * grid->columns)],
                        grid->columns, quick, &tile);
        const bool isWhole = tiles.size() == static_cast<std::size_t>(grid->columns) &&
                             tile.width * grid->columns >= grid->size.width;
        if (!isWhole && i == 0) return std::nullopt;
        if (!isWhole) break;  // the rest of a file that is cut off is gray
        row.resize(static_cast<std::size_t>(tile.width * grid->columns));
        for (std::int32_t y = 0; y < tile.height && scaler.rowsMissing() > 0; y++) {
            std::uint32_t* place = row.data();
            for (const HevcImage& part : tiles) {
                part.readRow(y, place);
                place += tile.width;
            }
            scaler.addRow(row.data());
        }
    }
    return scaler.take(kMissing);
}

std::optional<Preview> decode(const HeifImages& images, const Candidate& candidate, PixelSize box)
{
    const HeifImage& image = candidate.image;
    const PixelSize stored = transposedIf(image.isTransposed(), box);
    std::optional<PixelImage> pixels;
    if (image.type == boxType("jpeg")) pixels = decodeJpeg(image.bytes, stored);
    if (image.type == boxType("hvc1")) pixels = decodeHevc(image, stored);
    if (image.type == boxType("grid")) pixels = decodeGrid(images, image, stored);
    if (!pixels || pixels->pixels.empty()) return std::nullopt;
    for (const Orientation turn : image.turns) pixels = turnedUpright(std::move(*pixels), turn);
    return Preview{std::move(*pixels), candidate.isPicture};
}
}  // namespace

std::optional<Preview> makeHeifPreview(const ByteBlock& file, PixelSize box)
{
    const HeifImages images(file);
    std::optional<HeifImage> picture = images.picture();
    if (!picture) return std::nullopt;
    std::vector<Candidate> candidates = {candidateOf(std::move(*picture), true)};
    const PixelSize whole = candidates.front().size;
    for (HeifImage& thumbnail : images.thumbnails()) {
        candidates.push_back(candidateOf(std::move(thumbnail), false));
    }

    // Those that will do, the smallest first; then the others, the largest first.
    const PixelSize wanted = fitInto(whole, box);
    const auto fits = [&](const Candidate& candidate) {
        return wanted.width > 0 && candidate.size.width >= wanted.width &&
               candidate.size.height >= wanted.height &&
               hasAspectOf(candidate.size, whole, kAspectTolerance);
    };
    const auto rest = std::stable_partition(candidates.begin(), candidates.end(), fits);
    const auto width = [](const Candidate& candidate) { return candidate.size.width; };
    std::stable_sort(candidates.begin(), rest,
                     [&](const auto& a, const auto& b) { return width(a) < width(b); });
    std::stable_sort(rest, candidates.end(),
                     [&](const auto& a, const auto& b) { return width(a) > width(b); });
    for (auto candidate = candidates.begin(); candidate != candidates.end(); ++candidate) {
        std::optional<Preview> preview = decode(images, *candidate, box);
        if (!preview) continue;
        if (candidate >= rest) preview->image = withoutBars(std::move(preview->image), whole);
        return preview;
    }
    return std::nullopt;
}

}  // namespace pinorama
