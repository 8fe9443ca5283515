#include "pictures/png_chunks.h"

#include "pictures/byte_order.h"
#include "pictures/step_budget.h"

#include <algorithm>
#include <cstring>

namespace pinorama {
namespace {
constexpr std::uint8_t kName[] = {0x89, 'P', 'N', 'G', 0x0d, 0x0a, 0x1a, 0x0a};
constexpr std::size_t kHeaderSize = 8;      // length and type
constexpr std::uint64_t kChecksumSize = 4;  // after the data

// Takes the text of an iTXt chunk whose keyword is that of XMP.
void takeXmp(const ByteBlock& chunk, EmbeddedMetadata& metadata)
{
    static constexpr char kKeyword[] = "XML:com.adobe.xmp";  // and its zero byte
    constexpr std::uint64_t kMaxHeader = 512;
    const ByteView start = chunk.view(0, std::min(chunk.length(), kMaxHeader));
    if (start.size() < sizeof kKeyword + 2) return;
    if (std::memcmp(start.data(), kKeyword, sizeof kKeyword) != 0) return;
    const bool isCompressed = start[sizeof kKeyword] != 0;
    // The language and the translated keyword, each with its zero byte.
    auto position = start.begin() + sizeof kKeyword + 2;
    for (int text = 0; text < 2; text++) {
        position = std::find(position, start.end(), std::uint8_t{0});
        if (position == start.end()) return;
        ++position;
    }
    const ByteBlock text = chunk.from(static_cast<std::uint64_t>(position - start.begin()));
    if (isCompressed) {
        metadata.packedXmp = {text, Packing::deflate};
    } else {
        metadata.xmp = text;
    }
}
}  // namespace

bool isPng(const ByteBlock& picture)
{
    return picture.beginsWith(kName);
}

EmbeddedMetadata findPngMetadata(const ByteBlock& png)
{
    EmbeddedMetadata metadata;
    StepBudget budget;
    std::uint64_t position = sizeof kName;
    while (true) {
        const ByteView header = png.view(position, kHeaderSize);
        if (header.empty()) break;
        const std::uint64_t length = bigEndian32(&header[0]);
        const std::uint32_t type = bigEndian32(&header[4]);
        const ByteBlock chunk = png.part(position + kHeaderSize, length);
        constexpr std::uint32_t kExif = 0x65584966;  // "eXIf"
        constexpr std::uint32_t kText = 0x69545874;  // "iTXt"
        if (type == kExif && metadata.exif.isEmpty()) metadata.exif = tiffInExifPart(chunk);
        if (type == kText && metadata.xmp.isEmpty()) takeXmp(chunk, metadata);
        if (!budget.spend(kHeaderSize + length + kChecksumSize)) break;
        position += kHeaderSize + length + kChecksumSize;
    }
    return metadata;
}

}  // namespace pinorama
