#include "pictures/iptc_text.h"

#include "base/mac_roman.h"
#include "base/utf8.h"

#include <algorithm>
#include <optional>
#include <string_view>

namespace pinorama {
namespace {
// Windows-1252 where it differs from Latin-1. Bytes without a character stand for themselves.
constexpr char16_t kWindowsUnits[32] = {
    u'\u20ac', 0x81,      u'\u201a', u'\u0192', u'\u201e', u'\u2026', u'\u2020', u'\u2021',
    u'\u02c6', u'\u2030', u'\u0160', u'\u2039', u'\u0152', 0x8d,      u'\u017d', 0x8f,
    0x90,      u'\u2018', u'\u2019', u'\u201c', u'\u201d', u'\u2022', u'\u2013', u'\u2014',
    u'\u02dc', u'\u2122', u'\u0161', u'\u203a', u'\u0153', 0x9d,      u'\u017e', u'\u0178'};

bool isUpperControl(std::uint8_t byte)
{
    return byte >= 0x80 && byte <= 0x9f;
}

// Quotation marks, dashes, dots and daggers stand beside letters in texts from Windows all the
// time, and so does the trade mark sign.
bool isWindowsPunctuation(std::uint8_t byte)
{
    switch (byte) {
    case 0x82:
    case 0x84:
    case 0x85:
    case 0x86:
    case 0x87:
    case 0x89:
    case 0x8b:
    case 0x91:
    case 0x92:
    case 0x93:
    case 0x94:
    case 0x95:
    case 0x96:
    case 0x97:
    case 0x99:
    case 0x9b: return true;
    default: return false;
    }
}

// Letters in Windows-1252 outside the range in question.
bool isLetter(std::uint8_t byte)
{
    if (byte >= 0xc0) return byte != 0xd7 && byte != 0xf7;  // the multiplication and division signs
    return (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z');
}

bool looksLikeMacRoman(std::string_view text)
{
    const auto isLetterAt = [text](std::size_t index) {
        return index < text.size() && isLetter(static_cast<std::uint8_t>(text[index]));
    };
    for (std::size_t index = 0; index < text.size(); ++index) {
        const auto byte = static_cast<std::uint8_t>(text[index]);
        if (!isUpperControl(byte) || isWindowsPunctuation(byte)) continue;
        // In front of the first byte the index wraps around and is outside as well.
        if (isLetterAt(index - 1) || isLetterAt(index + 1)) return true;
    }
    return false;
}

std::string_view upToZero(ByteView bytes)
{
    const auto end = std::find(bytes.begin(), bytes.end(), std::uint8_t{0});
    return {reinterpret_cast<const char*>(bytes.data()),
            static_cast<std::size_t>(end - bytes.begin())};
}

// The text without a last character that lacks some of its bytes.
std::string_view withoutCutEnd(std::string_view text)
{
    for (std::size_t back = 1; back <= 3 && back <= text.size(); ++back) {
        const auto byte = static_cast<std::uint8_t>(text[text.size() - back]);
        if (byte < 0x80) break;
        if (byte < 0xc0) continue;  // in the middle of a character
        const std::size_t wanted = byte < 0xe0 ? 2 : byte < 0xf0 ? 3 : 4;
        if (back < wanted) text.remove_suffix(back);
        break;
    }
    return text;
}

std::optional<std::u16string> decodeStrictly(std::string_view text)
{
    const std::int32_t count = countUnitsOfUTF8(text);
    if (count < 0) return std::nullopt;
    std::u16string units(static_cast<std::size_t>(count), u'\0');
    units.resize(decodeUTF8(text, units));
    return units;
}

char16_t windowsUnit(char character)
{
    const auto byte = static_cast<std::uint8_t>(character);
    return isUpperControl(byte) ? kWindowsUnits[byte - 0x80] : char16_t{byte};
}
}  // namespace

std::u16string decodeUndeclaredText(ByteView bytes)
{
    const std::string_view text = upToZero(bytes);
    if (std::optional<std::u16string> units = decodeStrictly(text)) return *std::move(units);
    std::u16string units(text.size(), u'\0');
    if (looksLikeMacRoman(text)) {
        decodeMacRoman(text, units.data());
    } else {
        std::transform(text.begin(), text.end(), units.begin(), windowsUnit);
    }
    return units;
}

std::u16string decodeUTF8Text(ByteView bytes)
{
    std::optional<std::u16string> units = decodeStrictly(withoutCutEnd(upToZero(bytes)));
    return units ? *std::move(units) : decodeUndeclaredText(bytes);
}

}  // namespace pinorama
