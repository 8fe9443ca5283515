#include "pictures/x3f.h"

#include "pictures/byte_order.h"
#include "pictures/jpeg_segments.h"

#include <algorithm>
#include <cstring>

namespace pinorama {
namespace {
constexpr std::uint8_t kName[] = {'F', 'O', 'V', 'b'};
constexpr std::size_t kDirectoryHeader = 12;  // name, version, number of entries
constexpr std::size_t kEntrySize = 12;        // offset, length, type
constexpr std::uint64_t kImageHeader = 28;    // in front of the data of an image
constexpr std::uint32_t kMaxEntries = 64;
}  // namespace

bool isX3f(const ByteBlock& picture)
{
    return picture.beginsWith(kName);
}

ByteBlock findX3fJpeg(const ByteBlock& x3f)
{
    if (x3f.length() < 4) return {};
    const ByteView place = x3f.view(x3f.length() - 4, 4);
    if (place.empty()) return {};
    const ByteBlock directory = x3f.from(littleEndian32(place.data()));
    const ByteView header = directory.view(0, kDirectoryHeader);
    if (header.empty() || std::memcmp(header.data(), "SECd", 4) != 0) return {};
    const std::uint32_t count = std::min(littleEndian32(&header[8]), kMaxEntries);
    for (std::uint32_t index = 0; index < count; index++) {
        const ByteView entry = directory.view(kDirectoryHeader + index * kEntrySize, kEntrySize);
        if (entry.empty()) break;
        const std::uint32_t offset = littleEndian32(&entry[0]);
        const std::uint32_t length = littleEndian32(&entry[4]);
        const bool isImage = std::memcmp(&entry[8], "IMA", 3) == 0;  // IMAG, IMA2
        if (!isImage) continue;
        const ByteBlock image = x3f.part(offset, length).from(kImageHeader);
        if (isJpeg(image)) return image;
    }
    return {};
}

}  // namespace pinorama
