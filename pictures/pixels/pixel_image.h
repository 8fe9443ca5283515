// Pixels of a preview, and the two things that happen to them on their way to the screen: they are
// scaled down and turned upright. Sizes are pixels.

#pragma once

#include <cstdint>
#include <vector>

namespace pinorama {

// Rows from top to bottom without padding. A pixel is the number 0xAARRGGBB in the byte order of
// the machine with its colours multiplied by alpha, which is what Qt paints without a conversion
// (QImage::Format_ARGB32_Premultiplied) and what libjpeg-turbo writes directly.
struct PixelImage {
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::vector<std::uint32_t> pixels;  // width * height
};

struct PixelSize {
    std::int32_t width = 0;
    std::int32_t height = 0;

    bool operator==(const PixelSize&) const = default;
};

// A part of an image.
struct PixelArea {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t right = 0;  // the last two are outside
    std::int32_t bottom = 0;

    bool contains(std::int32_t x, std::int32_t y) const
    {
        return x >= left && x < right && y >= top && y < bottom;
    }
};

// The largest size with the aspect of `picture` that fits into `box`, never larger than `picture`
// itself and at least 1 pixel each way. {0, 0} when any of the four numbers is not positive.
PixelSize fitInto(PixelSize picture, PixelSize box);

// True when two sizes have the same aspect, but for `tolerance` (0.03: three percent) and for the
// rounding of a small size to whole pixels.
bool hasAspectOf(PixelSize size, PixelSize picture, double tolerance);

// How the rows and columns of a stored picture lie in the scene: the values 1 to 8 of the Exif tag
// Orientation (0x0112). Everything else counts as 1.
using Orientation = int;

// True when the orientation exchanges width and height.
bool isTransposed(Orientation orientation);

// Returns the picture turned and mirrored so that it stands upright.
PixelImage turnedUpright(PixelImage image, Orientation orientation);

// Returns the pixels of `kept`, which lies within the image and is not empty.
PixelImage cutOut(const PixelImage& image, const PixelArea& kept);

// Returns the picture without the black bars that a camera adds above and below, or to both sides,
// when its preview has another aspect than `picture`. Only bars that are dark all over are cut off;
// anything else comes back as it is.
PixelImage withoutBars(PixelImage image, PixelSize picture);

// Scales a picture down while its rows come in one after the other, so that only the result and one
// row of sums are in memory. Every pixel of the result is the mean of the area that it covers (a
// box filter); equal sizes copy.
class RowScaler {
public:
    // `from` is not smaller than `to` in either direction, and `to` is positive; with other sizes
    // the result is empty and rows are ignored.
    RowScaler(PixelSize from, PixelSize to);

    // Takes the next row: `from.width` pixels. Rows after the last are ignored.
    void addRow(const std::uint32_t* row);

    // The rows that are still to come.
    std::int32_t rowsMissing() const { return from_.height - rowsSeen_; }

    // Hands the result over. Rows that never came are filled with `missing`.
    PixelImage take(std::uint32_t missing);

private:
    void addToSums(const std::uint32_t* row, std::uint64_t weight);
    void writeRow();

    PixelSize from_;
    PixelSize to_;
    std::int32_t rowsSeen_ = 0;
    std::int32_t rowsWritten_ = 0;
    std::vector<std::uint32_t> columnOf_;      // per source column: the result column of its start
    std::vector<std::uint32_t> columnWeight_;  // ... and how much of it lies in that column
    std::vector<std::uint64_t> sums_;          // four channels per result column
    PixelImage result_;
};

}  // namespace pinorama
