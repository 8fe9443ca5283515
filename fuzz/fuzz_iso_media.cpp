// The boxes of HEIC, CR3, JPEG XL, MOV and MP4 files, and the place that a video states.

#include "pictures/iso_media.h"

#include <cmath>

using namespace pinorama;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    MemoryByteSource source({data, size});
    const ByteBlock file(source);
    (void)isIsoMedia(file);  // must accept any bytes, like the search
    const EmbeddedMetadata metadata = findIsoMetadata(file);
    for (const ByteBlock& part : {metadata.exif, metadata.gps, metadata.xmp}) {
        if (part.length() > size) __builtin_trap();
    }
    if (const auto& place = metadata.place) {
        const bool isOnEarth = std::abs(place->latitude) <= 90 && std::abs(place->longitude) <= 180;
        if (!isOnEarth) __builtin_trap();
    }
    return 0;
}
