// The preview of a JPEG picture: its headers, its embedded thumbnail, its decoding at a reduced
// scale. The decoder itself is libjpeg-turbo; this tests the code that calls it.

#include "pictures/pixels/embedded_jpegs.h"
#include "pictures/pixels/jpeg_decode.h"
#include "pictures/pixels/picture_preview.h"

using namespace pinorama;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr std::int32_t side = 16;
    MemoryByteSource source({data, size});
    const ByteBlock bytes(source);
    if (const auto image = decodeJpeg(bytes, {side, side})) {
        if (image->width > side || image->height > side) __builtin_trap();
    }
    for (const ByteBlock& stream : findEmbeddedJpegs(bytes).streams) {
        (void)jpegSize(stream);
    }
    // Only input that begins like a JPEG picture; for raw formats LibRaw would be called.
    if (size >= 2 && data[0] == 0xff && data[1] == 0xd8) {
        (void)makePreview(source, side, side);
    }
    return 0;
}
