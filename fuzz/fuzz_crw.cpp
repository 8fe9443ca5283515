// The header of a CRW picture, which is told apart from TIFF.

#include "pictures/crw.h"
#include "pictures/tiff_directory.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    platform::MemoryByteSource source({data, size});
    const platform::ByteBlock picture(source);
    if (platform::isCrw(picture) && size < 14) __builtin_trap();
    (void)platform::TiffBlock::open(picture);  // both look at the same bytes
    return 0;
}
