// ICC profiles, and the colours that they make of some pixels.

#include "pictures/pixels/colour_profile.h"

using namespace pinorama;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto profile = ColourProfile::fromIcc(ByteView(data, size));
    if (!profile) return 0;
    PixelImage image = {4, 1, {0xff000000, 0xffffffff, 0xffc86432, 0x80402010}};
    profile->convertToSrgb(image);
    for (const std::uint32_t pixel : image.pixels) {
        const std::uint32_t alpha = pixel >> 24;
        if (alpha != 255 && alpha != 128) __builtin_trap();
        // Colours are stored multiplied by alpha.
        for (const int shift : {0, 8, 16}) {
            if ((pixel >> shift & 0xff) > alpha) __builtin_trap();
        }
    }
    return 0;
}
