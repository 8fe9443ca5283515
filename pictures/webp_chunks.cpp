#include "pictures/webp_chunks.h"

#include "pictures/byte_order.h"
#include "pictures/step_budget.h"

#include <cstring>

namespace pinorama {
namespace {
constexpr std::size_t kFileHeaderSize = 12;
constexpr std::size_t kHeaderSize = 8;  // name and length
}  // namespace

bool isWebp(const ByteBlock& picture)
{
    const ByteView start = picture.view(0, kFileHeaderSize);
    return !start.empty() && std::memcmp(&start[0], "RIFF", 4) == 0 &&
           std::memcmp(&start[8], "WEBP", 4) == 0;
}

EmbeddedMetadata findWebpMetadata(const ByteBlock& webp)
{
    EmbeddedMetadata metadata;
    StepBudget budget;
    std::uint64_t position = kFileHeaderSize;
    while (true) {
        const ByteView header = webp.view(position, kHeaderSize);
        if (header.empty()) break;
        const std::uint64_t length = littleEndian32(&header[4]);
        const ByteBlock chunk = webp.part(position + kHeaderSize, length);
        const bool isExif = std::memcmp(header.data(), "EXIF", 4) == 0;
        // The fourth letter is a blank; some programs write a zero byte.
        const bool isXmp = std::memcmp(header.data(), "XMP", 3) == 0;
        if (isExif && metadata.exif.isEmpty()) metadata.exif = tiffInExifPart(chunk);
        if (isXmp && metadata.xmp.isEmpty()) metadata.xmp = chunk;
        const std::uint64_t padded = kHeaderSize + length + length % 2;
        if (!budget.spend(padded)) break;
        position += padded;
    }
    return metadata;
}

}  // namespace pinorama
