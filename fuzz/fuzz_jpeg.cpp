// The segments of a JPEG picture and the resources in them.

#include "pictures/jpeg_segments.h"
#include "pictures/photoshop_resources.h"
#include "pictures/tiff_directory.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    platform::MemoryByteSource source({data, size});
    const platform::ByteBlock picture(source);
    (void)platform::isJpeg(picture);  // must stand any bytes, as the search must
    const platform::JpegMetadata metadata = platform::findJpegMetadata(picture);
    for (const platform::ByteBlock& piece : metadata.photoshop) {
        (void)platform::findPhotoshopResource(piece, platform::kIptcResource);
    }
    // What was found as Exif data has a TIFF header.
    if (!metadata.exif.isEmpty() && !platform::TiffBlock::open(metadata.exif)) __builtin_trap();
    return 0;
}
