// A TIFF or BigTIFF block and its GPS directory, read from the first directory and from every
// offset.

#include "pictures/exif_gps.h"

using namespace pinorama;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    MemoryByteSource source({data, size});
    std::optional<TiffBlock> tiff = TiffBlock::open(ByteBlock(source));
    if (!tiff) tiff = TiffBlock::openBig(ByteBlock(source));
    if (!tiff) return 0;
    TiffEntry entries[] = {{0x8825}, {0x83bb}, {0x0112}};
    tiff->findEntries(tiff->firstDirectory(), entries);
    PictureProperties properties;
    readGpsDirectory(*tiff, tiff->directoryOf(entries[0]).value_or(0), properties);
    readGpsDirectory(*tiff, tiff->firstDirectory(), properties);
    // A coordinate is a sum of non-negative numbers.
    if (properties.latitude && !(*properties.latitude >= 0.0)) __builtin_trap();
    return 0;
}
