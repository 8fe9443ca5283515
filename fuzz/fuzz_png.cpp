// The pieces of metadata in a PNG picture.

#include "pictures/png_chunks.h"

using namespace pinorama;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    MemoryByteSource source({data, size});
    const ByteBlock file(source);
    (void)isPng(file);  // must accept any bytes, like the search
    const EmbeddedMetadata metadata = findPngMetadata(file);
    for (const ByteBlock& part : {metadata.exif, metadata.gps, metadata.iptc, metadata.xmp}) {
        if (part.length() > size) __builtin_trap();
    }
    return 0;
}
