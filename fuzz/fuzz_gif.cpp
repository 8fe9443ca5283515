// The pieces of metadata in a GIF picture.

#include "pictures/gif_blocks.h"

using namespace pinorama;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    MemoryByteSource source({data, size});
    const ByteBlock file(source);
    (void)isGif(file);  // must accept any bytes, like the search
    const EmbeddedMetadata metadata = findGifMetadata(file);
    for (const ByteBlock& part : {metadata.exif, metadata.gps, metadata.iptc, metadata.xmp}) {
        if (part.length() > size) __builtin_trap();
    }
    return 0;
}
