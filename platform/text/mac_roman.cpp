#include "platform/text/mac_roman.h"

#include "platform/text/ascii.h"

#include <unicode/ucnv.h>

#include <algorithm>
#include <array>
#include <memory>

namespace {
constexpr std::uint8_t kFirstUpperByte = 0x80;
constexpr std::size_t kUpperCount = 128;

struct Pair {
    char16_t unit;
    std::uint8_t byte;
};

// The upper half of the set, both ways.
struct Table {
    std::array<char16_t, kUpperCount> units;
    std::array<Pair, kUpperCount> bytes;  // sorted by unit
};

struct ConverterCloser {
    void operator()(UConverter* converter) const { ucnv_close(converter); }
};

Table makeTable()
{
    Table table;
    table.units.fill(0xfffd);  // stays only when ICU comes without its converters

    std::array<char, kUpperCount> all;
    for (std::size_t i = 0; i < kUpperCount; i++) all[i] = static_cast<char>(kFirstUpperByte + i);
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<UConverter, ConverterCloser> converter(ucnv_open("macintosh", &status));
    if (converter) {
        ucnv_toUChars(converter.get(), table.units.data(), kUpperCount, all.data(), kUpperCount,
                      &status);
    }

    for (std::size_t i = 0; i < kUpperCount; i++) {
        table.bytes[i] = {table.units[i], static_cast<std::uint8_t>(kFirstUpperByte + i)};
    }
    std::sort(table.bytes.begin(), table.bytes.end(),
              [](const Pair& a, const Pair& b) { return a.unit < b.unit; });
    return table;
}

// Made with the first character beyond ASCII.
const Table& upperHalf()
{
    static const Table table = makeTable();
    return table;
}
}  // namespace

char16_t platform::macRomanUnit(std::uint8_t byte)
{
    return byte < kFirstUpperByte ? byte : upperHalf().units[byte - kFirstUpperByte];
}

int platform::macRomanByte(char16_t unit)
{
    if (unit < kFirstUpperByte) return unit;
    const auto& bytes = upperHalf().bytes;
    const auto found = std::lower_bound(bytes.begin(), bytes.end(), unit,
                                        [](const Pair& a, char16_t b) { return a.unit < b; });
    return found != bytes.end() && found->unit == unit ? found->byte : -1;
}

void platform::decodeMacRoman(std::string_view bytes, char16_t* dest)
{
    const std::size_t plain = asciiLength(bytes);
    widenASCII(bytes.substr(0, plain), dest);
    for (std::size_t i = plain; i < bytes.size(); i++) {
        dest[i] = macRomanUnit(static_cast<std::uint8_t>(bytes[i]));
    }
}

bool platform::isMacRoman(std::u16string_view units)
{
    const std::u16string_view rest = units.substr(asciiLength(units));
    return std::all_of(rest.begin(), rest.end(),
                       [](char16_t unit) { return macRomanByte(unit) >= 0; });
}

void platform::encodeMacRoman(std::u16string_view units, char* dest)
{
    const std::size_t plain = asciiLength(units);
    narrowASCII(units.substr(0, plain), dest);
    for (std::size_t i = plain; i < units.size(); i++) {
        dest[i] = static_cast<char>(macRomanByte(units[i]));
    }
}

TovStringRef platform::createStringFromMacRoman(std::string_view bytes)
{
    if (bytes.size() > static_cast<std::size_t>(kLongestString)) return nullptr;
    TovStringRef string = createUnfilledString(static_cast<std::int32_t>(bytes.size()));
    if (string != nullptr) decodeMacRoman(bytes, string->units);
    return string;
}
