#include "pictures/gif_blocks.h"

#include "pictures/step_budget.h"

#include <cstring>
#include <optional>

namespace pinorama {
namespace {
constexpr std::uint8_t kExtension = 0x21;
constexpr std::uint8_t kApplication = 0xff;
constexpr std::uint8_t kImage = 0x2c;
constexpr std::size_t kScreenEnd = 13;  // name, size of the screen, flags, background, aspect

// Bytes of the colour table that flags announce.
std::uint64_t colourTableSize(std::uint8_t flags)
{
    return (flags & 0x80) != 0 ? std::uint64_t{3} << ((flags & 7) + 1) : 0;
}

// Steps over sub-blocks, each of which begins with its length, up to the empty one. Nothing when
// the picture ends before.
std::optional<std::uint64_t> endOfSubBlocks(const ByteBlock& gif, std::uint64_t position,
                                            StepBudget& budget)
{
    while (true) {
        const ByteView length = gif.view(position, 1);
        if (length.empty() || !budget.spend(std::uint64_t{1} + length[0])) return std::nullopt;
        position += std::uint64_t{1} + length[0];
        if (length[0] == 0) return position;
    }
}
}  // namespace

bool isGif(const ByteBlock& picture)
{
    const ByteView start = picture.view(0, 6);
    return !start.empty() && (std::memcmp(start.data(), "GIF87a", 6) == 0 ||
                              std::memcmp(start.data(), "GIF89a", 6) == 0);
}

EmbeddedMetadata findGifMetadata(const ByteBlock& gif)
{
    EmbeddedMetadata metadata;
    StepBudget budget;
    const ByteView screen = gif.view(0, kScreenEnd);
    if (screen.empty()) return metadata;
    std::optional<std::uint64_t> position = kScreenEnd + colourTableSize(screen[10]);
    while (position) {
        const ByteView block = gif.view(*position, 1);
        if (block.empty()) break;
        std::uint64_t data = 0;
        if (block[0] == kExtension) {
            constexpr std::size_t kApplicationHeader = 14;  // with the name of the application
            const ByteView header = gif.view(*position, kApplicationHeader);
            data = *position + 2;
            if (!header.empty() && header[1] == kApplication &&
                std::memcmp(&header[2], "\x0bXMP DataXMP", 12) == 0) {
                // The packet is not divided into sub-blocks; a table of descending lengths after it
                // leads whoever looks for some to the end.
                metadata.xmp = gif.from(*position + kApplicationHeader);
                break;
            }
        } else if (block[0] == kImage) {
            const ByteView image = gif.view(*position, 10);
            if (image.empty()) break;
            constexpr std::uint64_t kHeaderAndCodeSize = 11;
            data = *position + kHeaderAndCodeSize + colourTableSize(image[9]);
        } else {
            break;  // the end of the pictures, or no GIF
        }
        position = endOfSubBlocks(gif, data, budget);
    }
    return metadata;
}

}  // namespace pinorama
