// The pictures that the toolkit's image plug-ins decode, and the thumbnails of the desktop's cache,
// as the process that reads a picture has them decoded.

#include "reader/cached_thumbnail.h"
#include "reader/other_pictures.h"

using namespace pinorama;

namespace {
void check(const PixelImage& image, PixelSize box)
{
    if (image.width < 1 || image.width > box.width || image.height > box.height) __builtin_trap();
    if (image.pixels.size() != static_cast<std::size_t>(image.width) * image.height) {
        __builtin_trap();
    }
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr PixelSize kBox = {16, 16};
    static const bool isLoaded = (loadPicturePlugins(), true);
    if (!isLoaded) return 0;
    MemoryByteSource source({data, size});
    if (const auto image = decodeOtherPicture(source, kBox)) check(*image, kBox);
    if (const auto thumbnail = readCachedThumbnail(source, kBox)) check(thumbnail->image, kBox);
    return 0;
}
