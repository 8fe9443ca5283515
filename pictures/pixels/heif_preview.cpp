#include "pictures/pixels/heif_preview.h"

#include "pictures/jpeg_segments.h"
#include "pictures/pixels/av1_image.h"
#include "pictures/pixels/colour_profile.h"
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
    PixelSize stored{};
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
    const PixelSize size = image.sizeAfterChanges(stored);
    return {std::move(image), stored, size, isPicture};
}

// Nobody sees the filters of an image that is shown at less than half of its size.
bool isQuick(PixelSize size, PixelSize wanted)
{
    return wanted.width < size.width / 2;
}

// Whether it is coded in one of the two ways of videos.
bool isOfVideo(const HeifImage& image)
{
    return image.type == boxType("hvc1") || image.type == boxType("av01");
}

std::optional<YuvImage> decodeVideoImage(const HeifImage& image, bool quick)
{
    return image.type == boxType("av01") ? decodeAv1(image) : decodeHevc(image, quick);
}

std::optional<PixelImage> decodeSingle(const HeifImage& image, PixelSize box)
{
    const auto decoded = decodeVideoImage(image, isQuick(image.size, fitInto(image.size, box)));
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
std::vector<YuvImage> decodeTiles(const HeifImages& images, const HeifImage& grid,
                                  const std::uint32_t* items, std::int32_t count, bool quick,
                                  PixelSize* size)
{
    std::vector<YuvImage> tiles;
    for (std::int32_t i = 0; i < count; i++) {
        std::optional<HeifImage> tile = images.image(items[i]);
        if (!tile || !isOfVideo(*tile)) break;
        if (!tile->colours) tile->colours = grid.colours;
        std::optional<YuvImage> decoded = decodeVideoImage(*tile, quick);
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
        const std::vector<YuvImage> tiles =
            decodeTiles(images, image, &image.tiles[static_cast<std::size_t>(i * grid->columns)],
                        grid->columns, quick, &tile);
        const bool isWhole = tiles.size() == static_cast<std::size_t>(grid->columns) &&
                             tile.width * grid->columns >= grid->size.width;
        if (!isWhole && i == 0) return std::nullopt;
        if (!isWhole) break;  // the rest of a file that is cut off is gray
        row.resize(static_cast<std::size_t>(tile.width * grid->columns));
        for (std::int32_t y = 0; y < tile.height && scaler.rowsMissing() > 0; y++) {
            std::uint32_t* place = row.data();
            for (const YuvImage& part : tiles) {
                part.readRow(y, place);
                place += tile.width;
            }
            scaler.addRow(row.data());
        }
    }
    return scaler.take(kMissing);
}

// The box for the stored image so that what stays of it fits into `box` after the changes.
PixelSize storedBox(const Candidate& candidate, PixelSize box)
{
    const bool isTransposed = candidate.image.isTransposed();
    const PixelSize stays = transposedIf(isTransposed, candidate.size);
    const PixelSize stored = candidate.stored;
    if (stays == stored || stays.width <= 0 || stays.height <= 0) {
        return transposedIf(isTransposed, box);
    }
    const PixelSize wanted = transposedIf(isTransposed, fitInto(candidate.size, box));
    const auto scaled = [](std::int64_t whole, std::int64_t part, std::int64_t length) {
        return static_cast<std::int32_t>(std::max<std::int64_t>(whole * length / part, 1));
    };
    return {scaled(stored.width, stays.width, wanted.width),
            scaled(stored.height, stays.height, wanted.height)};
}

// Makes the changes of the candidate on its pixels, which are scaled down.
PixelImage changed(PixelImage image, const Candidate& candidate, PixelSize box)
{
    PixelSize stored = candidate.stored;
    for (const HeifChange& change : candidate.image.changes) {
        const PixelArea kept = change.keptOf(stored);
        if (change.part && stored.width > 0 && stored.height > 0) {
            const auto place = [](std::int64_t at, std::int64_t pixels, std::int64_t length) {
                return static_cast<std::int32_t>((at * pixels + length / 2) / length);
            };
            PixelArea part;
            part.left = std::min(place(kept.left, image.width, stored.width), image.width - 1);
            part.top = std::min(place(kept.top, image.height, stored.height), image.height - 1);
            part.right = std::max(place(kept.right, image.width, stored.width), part.left + 1);
            part.bottom = std::max(place(kept.bottom, image.height, stored.height), part.top + 1);
            image = cutOut(image, part);
        }
        image = turnedUpright(std::move(image), change.turn);
        stored = transposedIf(isTransposed(change.turn),
                              {kept.right - kept.left, kept.bottom - kept.top});
    }
    // Rounding may have left one pixel too many.
    if (image.width > box.width || image.height > box.height) {
        image = cutOut(
            image, {0, 0, std::min(image.width, box.width), std::min(image.height, box.height)});
    }
    return image;
}

// Converts the colours to sRGB: by the profile of the image or, of a thumbnail, of the picture;
// else by their primaries. A JPEG image may have a profile of its own, by which it is converted
// already.
void convertColours(const HeifImages& images, const HeifImage& image, PixelImage& pixels)
{
    const bool isJpeg = image.type == boxType("jpeg");
    if (isJpeg && !findJpegProfile(image.bytes, kMaxProfileLength).empty()) return;
    const auto convertBy = [&pixels](const HeifImage& stating) {
        std::optional<ColourProfile> profile = ColourProfile::fromIcc(stating.profile);
        const bool isStated = profile || stating.colours;
        if (!profile && stating.colours) {
            profile =
                ColourProfile::fromCodes(stating.colours->primaries, stating.colours->transfer);
        }
        if (profile) profile->convertToSrgb(pixels);
        return isStated;
    };
    if (convertBy(image)) return;
    const std::optional<HeifImage> tile =
        image.tiles.empty() ? std::nullopt : images.image(image.tiles.front());
    if (tile && convertBy(*tile)) return;
    if (const std::optional<HeifImage> picture = images.picture()) convertBy(*picture);
}

std::optional<Preview> decode(const HeifImages& images, const Candidate& candidate, PixelSize box)
{
    const HeifImage& image = candidate.image;
    const PixelSize stored = storedBox(candidate, box);
    std::optional<PixelImage> pixels;
    if (image.type == boxType("jpeg")) pixels = decodeJpeg(image.bytes, stored);
    if (isOfVideo(image)) pixels = decodeSingle(image, stored);
    if (image.type == boxType("grid")) pixels = decodeGrid(images, image, stored);
    if (!pixels || pixels->pixels.empty()) return std::nullopt;
    convertColours(images, image, *pixels);
    return Preview{changed(std::move(*pixels), candidate, box), candidate.isPicture};
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
