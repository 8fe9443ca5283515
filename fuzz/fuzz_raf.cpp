// The place of the JPEG picture in a RAF picture.

#include "pictures/raf.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    platform::MemoryByteSource source({data, size});
    const platform::ByteBlock picture(source);
    (void)platform::isRaf(picture);  // must stand any bytes, as the search must
    if (platform::findRafJpeg(picture).length() > size) __builtin_trap();
    return 0;
}
