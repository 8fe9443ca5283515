// The pieces of metadata in a WebP picture.

#include "pictures/webp_chunks.h"

using namespace pinorama;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    MemoryByteSource source({data, size});
    const ByteBlock file(source);
    (void)isWebp(file);  // must accept any bytes, like the search
    const EmbeddedMetadata metadata = findWebpMetadata(file);
    for (const ByteBlock& part : {metadata.exif, metadata.gps, metadata.iptc, metadata.xmp}) {
        if (part.length() > size) __builtin_trap();
    }
    return 0;
}
