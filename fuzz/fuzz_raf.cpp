// The offset of the JPEG picture in a RAF picture.

#include "pictures/raf.h"

using namespace pinorama;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    MemoryByteSource source({data, size});
    const ByteBlock picture(source);
    (void)isRaf(picture);  // must accept any bytes, like the search
    if (findRafJpeg(picture).length() > size) __builtin_trap();
    return 0;
}
