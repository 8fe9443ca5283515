#include "base/ascii.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <type_traits>

namespace pinorama {
namespace {
constexpr std::size_t kBlock = 8;  // characters that are copied together, which compilers see

// The bits that four ASCII units leave unset.
constexpr std::uint64_t kNoASCIIUnits = 0xff80ff80ff80ff80;

// Several characters at once, in the machine's order.
template <typename Character>
std::uint64_t wordAt(const Character* characters)
{
    std::uint64_t word = 0;
    std::memcpy(&word, characters, sizeof word);
    return word;
}

template <typename Character>
std::size_t lengthBelow0x80(std::basic_string_view<Character> text, std::uint64_t otherBits)
{
    constexpr std::size_t kStep = sizeof(std::uint64_t) / sizeof(Character);
    std::size_t at = 0;
    while (at + kStep <= text.size() && (wordAt(text.data() + at) & otherBits) == 0) at += kStep;
    while (at < text.size() && static_cast<std::make_unsigned_t<Character>>(text[at]) < 0x80) at++;
    return at;
}

template <typename From, typename To>
void copyEach(std::basic_string_view<From> from, To* dest)
{
    std::size_t at = 0;
    for (; at + kBlock <= from.size(); at += kBlock) {
        From in[kBlock];
        To out[kBlock];
        std::memcpy(in, from.data() + at, sizeof in);
        for (std::size_t i = 0; i < kBlock; i++) out[i] = static_cast<To>(in[i]);
        std::memcpy(dest + at, out, sizeof out);
    }
    for (; at < from.size(); at++) dest[at] = static_cast<To>(from[at]);
}
}  // namespace

std::size_t asciiLength(std::string_view bytes)
{
    return lengthBelow0x80(bytes, 0x8080808080808080);
}

std::size_t asciiLength(std::u16string_view units)
{
    return lengthBelow0x80(units, kNoASCIIUnits);
}

std::size_t lengthBeforeNull(std::u16string_view units)
{
    // A unit of 0 borrows from its highest bit when 1 is taken away.
    constexpr std::uint64_t kOnes = 0x0001000100010001, kHighBits = 0x8000800080008000;
    constexpr std::size_t kStep = sizeof(std::uint64_t) / sizeof(char16_t);
    std::size_t at = 0;
    for (; at + kStep <= units.size(); at += kStep) {
        const std::uint64_t word = wordAt(units.data() + at);
        if (((word - kOnes) & ~word & kHighBits) != 0) break;
    }
    while (at < units.size() && units[at] != 0) at++;
    return at;
}

std::size_t commonASCIILength(std::u16string_view a, std::u16string_view b)
{
    constexpr std::size_t kStep = sizeof(std::uint64_t) / sizeof(char16_t);
    const std::size_t shorter = std::min(a.size(), b.size());
    std::size_t at = 0;
    while (at + kStep <= shorter) {
        const std::uint64_t word = wordAt(a.data() + at);
        if (word != wordAt(b.data() + at) || (word & kNoASCIIUnits) != 0) break;
        at += kStep;
    }
    return at;
}

void widenASCII(std::string_view bytes, char16_t* dest)
{
    copyEach(bytes, dest);
}

void narrowASCII(std::u16string_view units, char* dest)
{
    copyEach(units, dest);
}

}  // namespace pinorama
