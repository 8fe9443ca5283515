// The JPEG picture in a X3F picture.

#include "pictures/x3f.h"

using namespace pinorama;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    MemoryByteSource source({data, size});
    const ByteBlock picture(source);
    (void)isX3f(picture);  // must accept any bytes, like the search
    if (findX3fJpeg(picture).length() > size) __builtin_trap();
    return 0;
}
