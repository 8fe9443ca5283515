#include "pictures/xmp_names.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace pinorama {
namespace {
constexpr std::size_t kBlockSize = 64;
constexpr std::size_t kBeginningSize = 5;  // of a name, with what stands before it

// Whether a name begins in the block, which is followed by at least kBeginningSize - 1 bytes. There
// are no branches, so that compilers make it a few instructions for many bytes at once.
bool mayHaveName(const char* block)
{
    unsigned char has = 0;
    for (std::size_t i = 0; i < kBlockSize; i++) {
        const char* const byte = block + i;
        const auto is = [byte](std::size_t at, char letter) {
            return static_cast<unsigned char>(byte[at] == letter);
        };
        // A prefix, or a tag without one.
        const int isStart = is(0, ':') | is(0, '<') | is(0, '/');
        // As few letters as tell them from the names that settings of raw files have.
        const int isName = (is(1, 'G') & is(2, 'P')) | (is(1, 'd') & is(2, 'e')) |
                           (is(1, 'S') & is(2, 't')) |
                           (is(1, 'C') & (is(2, 'i') | (is(2, 'o') & is(3, 'u')))) |
                           (is(1, 'P') & is(2, 'r') & is(3, 'o') & is(4, 'v'));
        has = static_cast<unsigned char>(has | (isStart & isName));
    }
    return has != 0;
}

// Whether there is nothing but blanks, line ends and what else has none of these bits; letters, ':'
// and '<' have one of them. Packets end with some kilobytes of blanks, as room for longer values.
bool isBlank(const char* block)
{
    constexpr std::uint64_t kBits = 0xD0D0D0D0D0D0D0D0;
    std::uint64_t all = 0;
    for (std::size_t i = 0; i < kBlockSize; i += sizeof all) {
        std::uint64_t bytes = 0;
        std::memcpy(&bytes, block + i, sizeof bytes);
        all |= bytes;
    }
    // The letters of a name may follow the block.
    return (all & kBits) == 0 && block[kBlockSize - 1] != '/';
}
}  // namespace

std::size_t endOfXmpNames(std::string_view document)
{
    // No name that is looked for fits into what is left out at the end.
    std::size_t end = document.size();
    if (end < kBeginningSize) return end;
    std::size_t last = end - (kBeginningSize - 1);
    while (last >= kBlockSize) {
        const char* const block = document.data() + last - kBlockSize;
        if (!isBlank(block) && mayHaveName(block)) break;
        last -= kBlockSize;
        end = last;
    }
    return end;
}

}  // namespace pinorama
