// The segments of a JPEG picture and the resources in them.

#include "pictures/extended_xmp.h"
#include "pictures/jpeg_segments.h"
#include "pictures/photoshop_resources.h"
#include "pictures/tiff_directory.h"
#include "pictures/xmp_packet.h"

using namespace pinorama;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    MemoryByteSource source({data, size});
    const ByteBlock picture(source);
    (void)isJpeg(picture);  // must accept any bytes, like the search
    const JpegMetadata metadata = findJpegMetadata(picture, WithXmp::yes);
    if (extendedXmp(metadata.xmp).size() > kMaxXmpLength) __builtin_trap();
    for (const ByteBlock& piece : metadata.photoshop) {
        (void)findPhotoshopResource(piece, kIptcResource);
    }
    // Exif data begins with a TIFF header.
    if (!metadata.exif.isEmpty() && !TiffBlock::open(metadata.exif)) __builtin_trap();
    return 0;
}
