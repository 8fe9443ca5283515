#include "pictures/crw.h"

#include <algorithm>

namespace pinorama {
namespace {
constexpr std::uint8_t kName[] = {'H', 'E', 'A', 'P', 'C', 'C', 'D', 'R'};
constexpr std::size_t kNameOffset = 6;
}  // namespace

bool isCrw(const ByteBlock& picture)
{
    const ByteView header = picture.view(0, kNameOffset + sizeof kName);
    if (header.empty() || header[0] != 'I' || header[1] != 'I') return false;
    return std::equal(std::begin(kName), std::end(kName), header.begin() + kNameOffset);
}

}  // namespace pinorama
