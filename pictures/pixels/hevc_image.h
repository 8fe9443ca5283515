// Images of HEVC, in which telephones code their HEIC pictures. They are decoded by libde265, which
// is loaded if this machine has it, and in this thread alone.

#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "pictures/byte_source.h"
#include "pictures/pixels/heif_images.h"
#include "pictures/pixels/pixel_image.h"

struct de265_image;

namespace pinorama {

// Loads the decoder, so that decoding opens no file later on. Called while a program starts. False
// if there is none that is known here: then there are no images of HEVC.
bool loadHevcDecoder();

// One image, decoded.
class HevcImage {
public:
    // Nothing when the decoder is not loaded or makes no image of the bytes.
    //
    //   image   of the type hvc1; what is coded beyond the size that it states is left out.
    //   quick   leaves the filters out that nobody sees once the image is scaled down.
    static std::optional<HevcImage> decode(const HeifImage& image, bool quick);

    PixelSize size() const { return size_; }

    // Writes the pixels of row `y`, opaque, to `out`, which has room for them.
    void readRow(std::int32_t y, std::uint32_t* out) const;

private:
    struct Plane {
        const std::uint8_t* bytes = nullptr;
        int stride = 0;  // bytes
        int bits = 8;    // of a sample, which is two bytes long when they are more than 8
    };
    using Decoder = std::unique_ptr<void, void (*)(void*)>;

    explicit HevcImage(Decoder decoder) : decoder_(std::move(decoder)) {}

    bool take(const de265_image* image, const std::optional<ColourCoding>& colours);
    void setColours(ColourCoding colours);
    int sample(int channel, std::int32_t x, std::int32_t y) const;

    Decoder decoder_;  // has the planes
    PixelSize size_{};
    Plane planes_[3];
    bool hasColours_ = false;
    int shiftX_ = 0;  // of the second and third plane
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
