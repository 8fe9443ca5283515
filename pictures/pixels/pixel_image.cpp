#include "pictures/pixels/pixel_image.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

namespace pinorama {
namespace {
constexpr std::uint32_t kDark = 48;  // bars are black, but compression and scaling blur their edge
constexpr Orientation kUpright = 1;
constexpr Orientation kFirstTransposed = 5;
constexpr Orientation kLastOrientation = 8;

// A length that is scaled by numerator / denominator, rounded, and at least 1.
std::int32_t scaledLength(std::int32_t length, std::int32_t numerator, std::int32_t denominator)
{
    const std::int64_t rounded =
        (std::int64_t{length} * numerator * 2 + denominator) / (std::int64_t{denominator} * 2);
    return static_cast<std::int32_t>(std::max<std::int64_t>(rounded, 1));
}

bool isEmpty(PixelSize size)
{
    return size.width <= 0 || size.height <= 0;
}

bool isDark(std::uint32_t pixel)
{
    return (pixel >> 16 & 0xff) < kDark && (pixel >> 8 & 0xff) < kDark && (pixel & 0xff) < kDark;
}

bool isDarkOutside(const PixelImage& image, const PixelArea& area)
{
    std::size_t i = 0;
    for (std::int32_t y = 0; y < image.height; y++) {
        for (std::int32_t x = 0; x < image.width; x++, i++) {
            if (!area.contains(x, y) && !isDark(image.pixels[i])) return false;
        }
    }
    return true;
}

// Where the pixel (x, y) of the upright picture is stored, for a stored size of width x height.
struct StoredPlace {
    std::int32_t x, y;
};

StoredPlace storedPlace(Orientation orientation, std::int32_t x, std::int32_t y, std::int32_t width,
                        std::int32_t height)
{
    const std::int32_t right = width - 1;
    const std::int32_t bottom = height - 1;
    switch (orientation) {
    case 2: return {right - x, y};           // mirrored left to right
    case 3: return {right - x, bottom - y};  // upside down
    case 4: return {x, bottom - y};          // mirrored top to bottom
    case 5: return {y, x};                   // mirrored along the main diagonal
    case 6: return {y, bottom - x};          // to be turned a quarter clockwise
    case 7: return {right - y, bottom - x};  // mirrored along the other diagonal
    case 8: return {right - y, x};           // to be turned a quarter counter-clockwise
    default: return {x, y};
    }
}
}  // namespace

PixelSize fitInto(PixelSize picture, PixelSize box)
{
    if (isEmpty(picture) || isEmpty(box)) return {};
    if (picture.width <= box.width && picture.height <= box.height) return picture;

    const bool isWider =
        std::int64_t{picture.width} * box.height >= std::int64_t{picture.height} * box.width;
    if (isWider) return {box.width, scaledLength(picture.height, box.width, picture.width)};
    return {scaledLength(picture.width, box.height, picture.height), box.height};
}

bool hasAspectOf(PixelSize size, PixelSize picture, double tolerance)
{
    if (isEmpty(size) || isEmpty(picture)) return false;
    const double expectedHeight = static_cast<double>(size.width) * picture.height / picture.width;
    const double expectedWidth = static_cast<double>(size.height) * picture.width / picture.height;
    return std::abs(expectedHeight - size.height) <= std::max(1.0, size.height * tolerance) ||
           std::abs(expectedWidth - size.width) <= std::max(1.0, size.width * tolerance);
}

bool isTransposed(Orientation orientation)
{
    return orientation >= kFirstTransposed && orientation <= kLastOrientation;
}

PixelImage turnedUpright(PixelImage image, Orientation orientation)
{
    if (orientation <= kUpright || orientation > kLastOrientation) return image;

    PixelImage upright;
    upright.width = isTransposed(orientation) ? image.height : image.width;
    upright.height = isTransposed(orientation) ? image.width : image.height;
    upright.pixels.reserve(image.pixels.size());
    for (std::int32_t y = 0; y < upright.height; y++) {
        for (std::int32_t x = 0; x < upright.width; x++) {
            const StoredPlace stored = storedPlace(orientation, x, y, image.width, image.height);
            upright.pixels.push_back(
                image.pixels[static_cast<std::size_t>(stored.y) * image.width + stored.x]);
        }
    }
    return upright;
}

PixelImage cutOut(const PixelImage& image, const PixelArea& kept)
{
    PixelImage cut;
    cut.width = kept.right - kept.left;
    cut.height = kept.bottom - kept.top;
    cut.pixels.reserve(static_cast<std::size_t>(cut.width) * cut.height);
    for (std::int32_t y = kept.top; y < kept.bottom; y++) {
        const auto row = image.pixels.begin() + std::ptrdiff_t{y} * image.width;
        cut.pixels.insert(cut.pixels.end(), row + kept.left, row + kept.right);
    }
    return cut;
}

PixelImage withoutBars(PixelImage image, PixelSize picture)
{
    if (picture.width <= 0 || picture.height <= 0) return image;
    const std::int64_t height = std::int64_t{image.width} * picture.height / picture.width;
    const std::int64_t width = std::int64_t{image.height} * picture.width / picture.height;
    if (width < 1 || height < 1) return image;
    // One of the two is at least as long as the preview; the other one has bars.
    const auto columns = static_cast<std::int32_t>(std::min<std::int64_t>(width, image.width));
    const auto rows = static_cast<std::int32_t>(std::min<std::int64_t>(height, image.height));
    const std::int32_t left = (image.width - columns) / 2;
    const std::int32_t top = (image.height - rows) / 2;
    // The row at the edge of a bar may be a mixture.
    const PixelArea kept = {left, top, left + columns, top + rows};
    const PixelArea looked = {left - (left > 0), top - (top > 0), kept.right + (left > 0),
                              kept.bottom + (top > 0)};
    if (!isDarkOutside(image, looked)) return image;
    return cutOut(image, kept);
}

// A source pixel is thought of as to.width (times to.height) units wide and a result pixel as
// from.width (times from.height): so all borders lie on whole units and all sums are exact. A sum
// is at most 255 * from.width * from.height, and lengths are below 2^17.
RowScaler::RowScaler(PixelSize from, PixelSize to) : from_(from), to_(to)
{
    if (isEmpty(to) || from.width < to.width || from.height < to.height) {
        from_ = to_ = {};
        return;
    }
    result_.width = to.width;
    result_.height = to.height;
    result_.pixels.reserve(static_cast<std::size_t>(to.width) * to.height);
    sums_.assign(static_cast<std::size_t>(to.width) * 4, 0);
    columnOf_.reserve(from.width);
    columnWeight_.reserve(from.width);
    for (std::int64_t x = 0; x < from.width; x++) {
        const std::int64_t start = x * to.width;
        const std::int64_t column = start / from.width;
        const std::int64_t columnEnd = (column + 1) * from.width;
        columnOf_.push_back(static_cast<std::uint32_t>(column));
        columnWeight_.push_back(
            static_cast<std::uint32_t>(std::min<std::int64_t>(to.width, columnEnd - start)));
    }
}

void RowScaler::addToSums(const std::uint32_t* row, std::uint64_t weight)
{
    for (std::int32_t x = 0; x < from_.width; x++) {
        const std::uint32_t pixel = row[x];
        const std::uint64_t inside = weight * columnWeight_[x];
        std::uint64_t* sum = &sums_[std::size_t{columnOf_[x]} * 4];
        for (int channel = 0; channel < 4; channel++) {
            sum[channel] += inside * (pixel >> (8 * channel) & 0xff);
        }
        const std::uint64_t beyond = weight * (to_.width - columnWeight_[x]);
        if (beyond == 0) continue;
        for (int channel = 0; channel < 4; channel++) {
            sum[4 + channel] += beyond * (pixel >> (8 * channel) & 0xff);
        }
    }
}

void RowScaler::writeRow()
{
    const std::uint64_t area = static_cast<std::uint64_t>(from_.width) * from_.height;
    for (std::int32_t x = 0; x < to_.width; x++) {
        std::uint32_t pixel = 0;
        for (int channel = 0; channel < 4; channel++) {
            const std::uint64_t mean = (sums_[std::size_t{4} * x + channel] + area / 2) / area;
            pixel |= static_cast<std::uint32_t>(mean) << (8 * channel);
        }
        result_.pixels.push_back(pixel);
    }
    std::fill(sums_.begin(), sums_.end(), 0);
    rowsWritten_++;
}

void RowScaler::addRow(const std::uint32_t* row)
{
    if (rowsMissing() <= 0) return;
    if (from_ == to_) {
        result_.pixels.insert(result_.pixels.end(), row, row + from_.width);
        rowsSeen_++;
        rowsWritten_++;
        return;
    }
    const std::int64_t start = std::int64_t{rowsSeen_} * to_.height;
    const std::int64_t end = start + to_.height;
    const std::int64_t rowEnd = std::int64_t{rowsWritten_ + 1} * from_.height;
    rowsSeen_++;
    addToSums(row, static_cast<std::uint64_t>(std::min(end, rowEnd) - start));
    if (end < rowEnd) return;
    writeRow();
    if (end > rowEnd) addToSums(row, static_cast<std::uint64_t>(end - rowEnd));
}

PixelImage RowScaler::take(std::uint32_t missing)
{
    const std::vector<std::uint32_t> filler(static_cast<std::size_t>(from_.width), missing);
    while (rowsMissing() > 0) addRow(filler.data());
    return std::move(result_);
}

}  // namespace pinorama
