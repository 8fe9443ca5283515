// What the numbers of a picture mean as colours, and the same colours in the numbers of sRGB, which
// is what the window shows. Most telephones and many cameras write their pictures in wider spaces;
// shown as if they were sRGB they look dull.

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "pictures/byte_source.h"
#include "pictures/pixels/pixel_image.h"

namespace pinorama {

// The longest ICC profile that is read, in bytes. Those with tables for every colour are longer,
// and are of printers.
constexpr std::size_t kMaxProfileLength = 256 * 1024;

// A colour space of three primaries, each with a curve from its numbers to amounts of light.
class ColourProfile {
public:
    // The space that an ICC profile describes by three primaries and three curves, as those of
    // screens, cameras and working spaces do. Nothing for any other profile, and for one that is
    // malformed.
    // Source: ICC.1:2022, 8.4.3 (matrix profiles), 10.6 (curv), 10.18 (para), 10.31 (XYZ).
    static std::optional<ColourProfile> fromIcc(ByteView profile);

    // The same of a profile within a file.
    static std::optional<ColourProfile> fromIcc(const ByteBlock& profile);

    // The space with these numbers for ColourPrimaries and TransferCharacteristics. Nothing for
    // sRGB, and where one of them is not known here. Of the two transfers with a high dynamic
    // range (PQ and HLG) lights brighter than white paper are compressed.
    // Source: ITU-T H.273, 8.1 and 8.2; ITU-R BT.2100 and BT.2408 (white paper is 203 cd/m2).
    static std::optional<ColourProfile> fromCodes(int primaries, int transfer);

    // True if converting would change no colour visibly.
    bool isSrgb() const;

    // Converts the colours of the image to sRGB; those that sRGB does not have become the nearest
    // ones channel by channel. Alpha stays.
    void convertToSrgb(PixelImage& image) const;

private:
    using Matrix = std::array<std::array<double, 3>, 3>;

    Matrix toSrgb_{};                                 // of amounts of light
    std::array<std::array<double, 256>, 3> light_{};  // 0 to 1 of each number of a channel
};

}  // namespace pinorama
