#include "pictures/mrw.h"

#include "pictures/byte_order.h"

#include <algorithm>

namespace pinorama {
namespace {
constexpr std::uint8_t kName[] = {0, 'M', 'R', 'M'};
constexpr std::uint8_t kTiffName[] = {0, 'T', 'T', 'W'};
constexpr std::size_t kHeaderSize = 8;  // a name and the length of what follows
}  // namespace

bool isMrw(const ByteBlock& picture)
{
    return picture.beginsWith(kName);
}

ByteBlock findMrwTiff(const ByteBlock& mrw)
{
    const ByteView header = mrw.view(0, kHeaderSize);
    if (header.empty()) return {};
    // The blocks end where the picture data begins.
    const ByteBlock blocks = mrw.part(kHeaderSize, bigEndian32(&header[4]));
    std::uint64_t position = 0;
    while (true) {
        const ByteView block = blocks.view(position, kHeaderSize);
        if (block.empty()) return {};
        const std::uint64_t length = bigEndian32(&block[4]);
        position += kHeaderSize;
        if (std::equal(std::begin(kTiffName), std::end(kTiffName), block.begin())) {
            return blocks.part(position, length);
        }
        position += length;
    }
}

}  // namespace pinorama
