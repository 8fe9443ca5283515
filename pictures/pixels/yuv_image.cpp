#include "pictures/pixels/yuv_image.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace pinorama {
namespace {
constexpr std::int32_t kMaxSide = 16384;  // pixels

std::uint32_t clamped(int value)
{
    return static_cast<std::uint32_t>(std::clamp(value >> 16, 0, 255));
}
}  // namespace

std::optional<YuvImage> YuvImage::make(Owner owner, const Layout& layout, ColourCoding colours,
                                       PixelSize stated)
{
    YuvImage image(std::move(owner));
    image.layout_ = layout;
    PixelSize& size = image.layout_.size;
    if (size.width <= 0 || size.height <= 0 || std::max(size.width, size.height) > kMaxSide) {
        return std::nullopt;
    }
    image.hasColours_ = layout.chroma != kMonochrome;
    image.shiftX_ = layout.chroma == k420 || layout.chroma == k422 ? 1 : 0;
    image.shiftY_ = layout.chroma == k420 ? 1 : 0;
    for (int i = 0; i < (image.hasColours_ ? 3 : 1); i++) {
        const Plane& plane = layout.planes[i];
        const int sampleSize = plane.bits > 8 ? 2 : 1;
        const int width = i == 0 ? size.width : (size.width + image.shiftX_) >> image.shiftX_;
        const bool isSound = plane.bytes != nullptr && plane.bits >= 8 && plane.bits <= 16 &&
                             plane.stride >= std::ptrdiff_t{width} * sampleSize;
        if (!isSound) return std::nullopt;
    }
    // Some cameras code whole blocks and say only in the file how much of them is the image.
    if (stated.width > 0) size.width = std::min(size.width, stated.width);
    if (stated.height > 0) size.height = std::min(size.height, stated.height);
    image.setColours(colours);
    return std::optional<YuvImage>(std::move(image));
}

// Source: ITU-T H.273, 8.3.
void YuvImage::setColours(ColourCoding colours)
{
    isRgb_ = hasColours_ && colours.matrix == 0;
    double red = 0.299;
    double blue = 0.114;
    if (colours.matrix == 1) red = 0.2126, blue = 0.0722;
    if (colours.matrix == 9 || colours.matrix == 10) red = 0.2627, blue = 0.0593;
    const double green = 1 - red - blue;
    const double one = 65536;
    const double luma = colours.isFullRange ? 1 : 255.0 / 219;
    const double chroma = colours.isFullRange ? 1 : 255.0 / 224;
    const auto fixed = [one](double value) { return static_cast<int>(std::lround(value * one)); };
    luma_ = fixed(luma);
    lumaOffset_ = colours.isFullRange ? 0 : 16;
    redOfV_ = fixed(2 * (1 - red) * chroma);
    blueOfU_ = fixed(2 * (1 - blue) * chroma);
    greenOfV_ = fixed(2 * (1 - red) * red / green * chroma);
    greenOfU_ = fixed(2 * (1 - blue) * blue / green * chroma);
}

int YuvImage::sample(int channel, std::int32_t x, std::int32_t y) const
{
    const Plane& plane = layout_.planes[channel];
    const std::uint8_t* row = plane.bytes + y * plane.stride;
    if (plane.bits == 8) return row[x];
    // Decoders keep them in the byte order of the machine.
    return reinterpret_cast<const std::uint16_t*>(row)[x] >> (plane.bits - 8);
}

void YuvImage::readRow(std::int32_t y, std::uint32_t* out) const
{
    constexpr std::uint32_t kOpaque = 0xff000000;
    constexpr int kHalf = 1 << 15;
    for (std::int32_t x = 0; x < layout_.size.width; x++) {
        const int luma = (sample(0, x, y) - lumaOffset_) * luma_ + kHalf;
        if (isRgb_) {
            const int blue = (sample(1, x >> shiftX_, y >> shiftY_) - lumaOffset_) * luma_ + kHalf;
            const int red = (sample(2, x >> shiftX_, y >> shiftY_) - lumaOffset_) * luma_ + kHalf;
            out[x] = kOpaque | clamped(red) << 16 | clamped(luma) << 8 | clamped(blue);
            continue;
        }
        const int u = hasColours_ ? sample(1, x >> shiftX_, y >> shiftY_) - 128 : 0;
        const int v = hasColours_ ? sample(2, x >> shiftX_, y >> shiftY_) - 128 : 0;
        out[x] = kOpaque | clamped(luma + redOfV_ * v) << 16 |
                 clamped(luma - greenOfU_ * u - greenOfV_ * v) << 8 | clamped(luma + blueOfU_ * u);
    }
}

}  // namespace pinorama
