#include "pictures/embedded_metadata.h"

#include "pictures/tiff_directory.h"

namespace pinorama {

ByteBlock tiffInExifPart(const ByteBlock& part)
{
    static constexpr std::uint8_t kName[] = {'E', 'x', 'i', 'f', 0};
    constexpr std::uint64_t kHeaderSize = 6;
    const ByteBlock tiff = part.beginsWith(kName) ? part.from(kHeaderSize) : part;
    return TiffBlock::open(tiff) ? tiff : ByteBlock();
}

}  // namespace pinorama
