#include "pictures/iso_boxes.h"

#include "pictures/byte_order.h"

namespace pinorama {
namespace {
constexpr std::size_t kHeaderSize = 8;       // size and name
constexpr std::size_t kLongHeaderSize = 16;  // the same, and a size of eight bytes
}  // namespace

std::optional<IsoBox> IsoBoxes::next()
{
    const ByteView header = parent_.view(position_, kHeaderSize);
    if (header.empty()) return std::nullopt;
    std::uint64_t size = bigEndian32(&header[0]);
    const std::uint32_t type = bigEndian32(&header[4]);
    std::uint64_t headerSize = kHeaderSize;
    if (size == 1) {
        const ByteView longHeader = parent_.view(position_, kLongHeaderSize);
        if (longHeader.empty()) return std::nullopt;
        size = std::uint64_t{bigEndian32(&longHeader[8])} << 32 | bigEndian32(&longHeader[12]);
        headerSize = kLongHeaderSize;
    } else if (size == 0) {
        size = parent_.length() - position_;  // up to the end
    }
    if (size < headerSize || !budget_.spend(size)) return std::nullopt;
    const IsoBox box{type, parent_.part(position_ + headerSize, size - headerSize)};
    const std::uint64_t left = parent_.length() - position_;
    position_ = size < left ? position_ + size : parent_.length();
    return box;
}

ByteBlock childrenOfMeta(const ByteBlock& meta)
{
    const ByteView start = meta.view(0, kHeaderSize);
    const bool isPlain = !start.empty() && bigEndian32(&start[4]) == boxType("hdlr");
    return isPlain ? meta : contentOfFullBox(meta);
}

}  // namespace pinorama
