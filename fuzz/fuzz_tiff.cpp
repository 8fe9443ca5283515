// A TIFF block and the GPS directory, taken from the first directory and from everywhere.

#include "pictures/exif_gps.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    platform::MemoryByteSource source({data, size});
    const auto tiff = platform::TiffBlock::open(platform::ByteBlock(source));
    if (!tiff) return 0;
    platform::TiffEntry entries[] = {{0x8825}, {0x83bb}, {0x0112}};
    tiff->findEntries(tiff->firstDirectory(), entries);
    platform::PictureProperties properties;
    platform::readGpsDirectory(*tiff, tiff->integerOf(entries[0]).value_or(0), properties);
    platform::readGpsDirectory(*tiff, tiff->firstDirectory(), properties);
    // A coordinate is a sum of magnitudes.
    if (properties.latitude && !(*properties.latitude >= 0.0)) __builtin_trap();
    return 0;
}
