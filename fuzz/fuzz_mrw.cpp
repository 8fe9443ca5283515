// The chain of blocks of a MRW picture.

#include "pictures/mrw.h"

using namespace pinorama;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    MemoryByteSource source({data, size});
    const ByteBlock picture(source);
    (void)isMrw(picture);  // must accept any bytes, like the search
    if (findMrwTiff(picture).length() > size) __builtin_trap();
    return 0;
}
