// Where HEIF and CR3 files have their images. Nothing is decoded here: the decoder of HEVC is
// another project's, and JPEG streams have a fuzzer of their own.

#include "pictures/pixels/cr3_jpegs.h"
#include "pictures/pixels/heif_images.h"

using namespace pinorama;

namespace {
void check(const HeifImages& images, const HeifImage& image, std::size_t size)
{
    if (image.bytes.length() > size || image.configuration.length() > size) __builtin_trap();
    const std::optional<HeifGrid> grid = gridOf(image);
    if (!grid) return;
    const auto count =
        static_cast<std::size_t>(grid->rows) * static_cast<std::size_t>(grid->columns);
    if (grid->size.width < 1 || grid->size.height < 1 || image.tiles.size() < count) {
        __builtin_trap();
    }
    for (const std::uint32_t tile : image.tiles) {
        if (const auto part = images.image(tile); part && part->bytes.length() > size) {
            __builtin_trap();
        }
    }
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    MemoryByteSource source({data, size});
    const ByteBlock file(source);
    const HeifImages images(file);
    if (const auto picture = images.picture()) check(images, *picture, size);
    for (const HeifImage& thumbnail : images.thumbnails()) check(images, thumbnail, size);
    for (const ByteBlock& stream : findCr3Jpegs(file).streams) {
        if (stream.length() > size) __builtin_trap();
    }
    return 0;
}
