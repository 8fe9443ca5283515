// The header of a CRW picture and its distinction from TIFF.

#include "pictures/crw.h"
#include "pictures/tiff_directory.h"

using namespace pinorama;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    MemoryByteSource source({data, size});
    const ByteBlock picture(source);
    if (isCrw(picture) && size < 14) __builtin_trap();
    (void)TiffBlock::open(picture);  // both look at the same bytes
    return 0;
}
