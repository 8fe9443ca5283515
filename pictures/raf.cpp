#include "pictures/raf.h"

#include "pictures/byte_order.h"

namespace pinorama {
namespace {
constexpr std::uint8_t kName[] = {'F', 'U', 'J', 'I', 'F', 'I', 'L', 'M',
                                  'C', 'C', 'D', '-', 'R', 'A', 'W'};
constexpr std::uint64_t kJpegPlace = 84;  // offset and length, four bytes each
}  // namespace

bool isRaf(const ByteBlock& picture)
{
    return picture.beginsWith(kName);
}

ByteBlock findRafJpeg(const ByteBlock& raf)
{
    const ByteView place = raf.view(kJpegPlace, 8);
    if (place.empty()) return {};
    const std::uint32_t offset = bigEndian32(&place[0]);
    const std::uint32_t length = bigEndian32(&place[4]);
    return raf.part(offset, length);
}

}  // namespace pinorama
