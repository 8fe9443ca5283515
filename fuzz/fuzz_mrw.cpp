// The chain of blocks of a MRW picture.

#include "pictures/mrw.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    platform::MemoryByteSource source({data, size});
    const platform::ByteBlock picture(source);
    (void)platform::isMrw(picture);  // must stand any bytes, as the search must
    if (platform::findMrwTiff(picture).length() > size) __builtin_trap();
    return 0;
}
