// One image as a video decoder makes it: brightness and two colours in planes of their own, in the
// memory of the decoder.

#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>

#include "pictures/pixels/heif_images.h"
#include "pictures/pixels/pixel_image.h"

namespace pinorama {

class YuvImage {
public:
    // What has the memory: it is released with the image.
    using Owner = std::unique_ptr<void, void (*)(void*)>;

    // How the colours are stored, in the numbers of both decoders that are used.
    enum Chroma : int { kMonochrome, k420, k422, k444 };

    struct Plane {
        const std::uint8_t* bytes = nullptr;
        std::ptrdiff_t stride = 0;  // bytes
        int bits = 8;               // of a sample, which is two bytes long when they are more
    };

    struct Layout {
        PixelSize size{};
        int chroma = kMonochrome;
        Plane planes[3];
    };

    // Nothing if the layout is none that can be read.
    //
    //   stated  the size of the image as its file has it: what is coded beyond it is left out;
    //           {0, 0} if there is no such statement.
    static std::optional<YuvImage> make(Owner owner, const Layout& layout, ColourCoding colours,
                                        PixelSize stated);

    PixelSize size() const { return layout_.size; }

    // Writes the pixels of row `y`, opaque, to `out`, which has room for them.
    void readRow(std::int32_t y, std::uint32_t* out) const;

private:
    explicit YuvImage(Owner owner) : owner_(std::move(owner)) {}

    void setColours(ColourCoding colours);
    int sample(int channel, std::int32_t x, std::int32_t y) const;

    Owner owner_;
    Layout layout_;
    bool hasColours_ = false;
    bool isRgb_ = false;  // green, blue and red instead
    int shiftX_ = 0;      // of the second and third plane
    int shiftY_ = 0;
    // 16 bits after the point.
    int luma_ = 0;
    int lumaOffset_ = 0;
    int redOfV_ = 0;
    int greenOfU_ = 0;
    int greenOfV_ = 0;
    int blueOfU_ = 0;
};

}  // namespace pinorama
