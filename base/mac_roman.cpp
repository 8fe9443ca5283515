#include "base/mac_roman.h"

#include <algorithm>
#include <array>

namespace pinorama {
namespace {
constexpr std::uint8_t kFirstUpperByte = 0x80;
constexpr std::size_t kUpperCount = 128;

struct Pair {
    char16_t unit;
    std::uint8_t byte;
};

// The characters of the upper half in the order of their bytes.
constexpr std::array<char16_t, kUpperCount> kUnits = {
    0x00c4, 0x00c5, 0x00c7, 0x00c9, 0x00d1, 0x00d6, 0x00dc, 0x00e1, 0x00e0, 0x00e2, 0x00e4, 0x00e3,
    0x00e5, 0x00e7, 0x00e9, 0x00e8, 0x00ea, 0x00eb, 0x00ed, 0x00ec, 0x00ee, 0x00ef, 0x00f1, 0x00f3,
    0x00f2, 0x00f4, 0x00f6, 0x00f5, 0x00fa, 0x00f9, 0x00fb, 0x00fc, 0x2020, 0x00b0, 0x00a2, 0x00a3,
    0x00a7, 0x2022, 0x00b6, 0x00df, 0x00ae, 0x00a9, 0x2122, 0x00b4, 0x00a8, 0x2260, 0x00c6, 0x00d8,
    0x221e, 0x00b1, 0x2264, 0x2265, 0x00a5, 0x00b5, 0x2202, 0x2211, 0x220f, 0x03c0, 0x222b, 0x00aa,
    0x00ba, 0x03a9, 0x00e6, 0x00f8, 0x00bf, 0x00a1, 0x00ac, 0x221a, 0x0192, 0x2248, 0x2206, 0x00ab,
    0x00bb, 0x2026, 0x00a0, 0x00c0, 0x00c3, 0x00d5, 0x0152, 0x0153, 0x2013, 0x2014, 0x201c, 0x201d,
    0x2018, 0x2019, 0x00f7, 0x25ca, 0x00ff, 0x0178, 0x2044, 0x20ac, 0x2039, 0x203a, 0xfb01, 0xfb02,
    0x2021, 0x00b7, 0x201a, 0x201e, 0x2030, 0x00c2, 0x00ca, 0x00c1, 0x00cb, 0x00c8, 0x00cd, 0x00ce,
    0x00cf, 0x00cc, 0x00d3, 0x00d4, 0xf8ff, 0x00d2, 0x00da, 0x00db, 0x00d9, 0x0131, 0x02c6, 0x02dc,
    0x00af, 0x02d8, 0x02d9, 0x02da, 0x00b8, 0x02dd, 0x02db, 0x02c7,
};

// The same the other way, sorted by unit.
constexpr std::array<Pair, kUpperCount> kBytes = [] {
    std::array<Pair, kUpperCount> bytes{};
    for (std::size_t i = 0; i < kUpperCount; i++) {
        bytes[i] = {kUnits[i], static_cast<std::uint8_t>(kFirstUpperByte + i)};
    }
    std::sort(bytes.begin(), bytes.end(),
              [](const Pair& a, const Pair& b) { return a.unit < b.unit; });
    return bytes;
}();
}  // namespace

char16_t macRomanUnit(std::uint8_t byte)
{
    return byte < kFirstUpperByte ? byte : kUnits[byte - kFirstUpperByte];
}

int macRomanByte(char16_t unit)
{
    if (unit < kFirstUpperByte) return unit;
    const auto found = std::lower_bound(kBytes.begin(), kBytes.end(), unit,
                                        [](const Pair& a, char16_t b) { return a.unit < b; });
    return found != kBytes.end() && found->unit == unit ? found->byte : -1;
}

void decodeMacRoman(std::string_view bytes, char16_t* dest)
{
    std::transform(bytes.begin(), bytes.end(), dest,
                   [](char byte) { return macRomanUnit(static_cast<std::uint8_t>(byte)); });
}

bool isMacRoman(std::u16string_view units)
{
    return std::all_of(units.begin(), units.end(),
                       [](char16_t unit) { return macRomanByte(unit) >= 0; });
}

void encodeMacRoman(std::u16string_view units, char* dest)
{
    std::transform(units.begin(), units.end(), dest,
                   [](char16_t unit) { return static_cast<char>(macRomanByte(unit)); });
}

}  // namespace pinorama
