#include "pictures/embedded_metadata.h"

#include "pictures/byte_order.h"

#include "pictures/tiff_directory.h"

namespace pinorama {

ByteBlock tiffInExifPart(const ByteBlock& part)
{
    static constexpr std::uint8_t kName[] = {'E', 'x', 'i', 'f', 0};
    constexpr std::uint64_t kHeaderSize = 6;
    const ByteBlock tiff = part.beginsWith(kName) ? part.from(kHeaderSize) : part;
    return TiffBlock::open(tiff) ? tiff : ByteBlock();
}

ByteBlock tiffInOffsetExif(const ByteBlock& part)
{
    constexpr std::uint64_t kOffsetSize = 4;
    const ByteView offset = part.view(0, kOffsetSize);
    if (offset.empty()) return {};
    return tiffInExifPart(part.from(kOffsetSize + bigEndian32(offset.data())));
}

}  // namespace pinorama
