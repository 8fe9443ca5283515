#include "base/utf8.h"

#include <limits>

namespace pinorama {
namespace {
constexpr std::size_t kMaxByteCount = std::numeric_limits<std::int32_t>::max() / 2;
constexpr char32_t kNone = 0xffffffff;
constexpr char32_t kReplacement = 0xfffd;

bool isSurrogate(char32_t codePoint)
{
    return (codePoint & 0xfffff800) == 0xd800;
}

std::size_t unitCount(char32_t codePoint)
{
    return codePoint > 0xffff ? 2 : 1;
}

std::size_t byteCount(char32_t codePoint)
{
    return codePoint < 0x80 ? 1 : codePoint < 0x800 ? 2 : codePoint < 0x10000 ? 3 : 4;
}

// Reads the character of two to four bytes that begins at `*next` and moves on to the next one.
// kNone, and no move, for malformed bytes: Unicode Standard, table 3-7.
char32_t readSequence(std::string_view bytes, std::size_t* next)
{
    const auto byteAt = [bytes](std::size_t place) {
        return static_cast<unsigned>(static_cast<unsigned char>(bytes[place]));
    };
    const unsigned lead = byteAt(*next);
    const std::size_t count = lead < 0xc2   ? 0
                              : lead < 0xe0 ? 2
                              : lead < 0xf0 ? 3
                              : lead < 0xf5 ? 4
                                            : 0;
    if (count == 0 || count > bytes.size() - *next) return kNone;
    char32_t codePoint = lead & (0x7fU >> count);
    for (std::size_t i = 1; i < count; i++) {
        const unsigned trail = byteAt(*next + i);
        if ((trail & 0xc0) != 0x80) return kNone;
        codePoint = codePoint << 6 | (trail & 0x3f);
    }
    if (byteCount(codePoint) != count || isSurrogate(codePoint) || codePoint > 0x10ffff)
        return kNone;
    *next += count;
    return codePoint;
}

// The same for a character of any length.
char32_t readUTF8(std::string_view bytes, std::size_t* next)
{
    const auto lead = static_cast<unsigned char>(bytes[*next]);
    if (lead >= 0x80) return readSequence(bytes, next);
    ++*next;
    return lead;
}

// Reads the character that begins at `*next` and moves on past it; a lone surrogate comes as it
// is.
char32_t readUTF16(std::u16string_view units, std::size_t* next)
{
    const char32_t first = units[(*next)++];
    if ((first & 0xfc00) != 0xd800 || *next == units.size()) return first;
    const char32_t second = units[*next];
    if ((second & 0xfc00) != 0xdc00) return first;
    ++*next;
    return 0x10000 + ((first - 0xd800) << 10) + (second - 0xdc00);
}

void writeUTF16(char32_t codePoint, char16_t* dest)
{
    if (codePoint <= 0xffff) {
        dest[0] = static_cast<char16_t>(codePoint);
        return;
    }
    dest[0] = static_cast<char16_t>(0xd7c0 + (codePoint >> 10));
    dest[1] = static_cast<char16_t>(0xdc00 + (codePoint & 0x3ff));
}

void writeUTF8(char32_t codePoint, char* dest)
{
    if (codePoint < 0x80) {
        *dest = static_cast<char>(codePoint);
        return;
    }
    constexpr unsigned kLeads[] = {0, 0, 0xc0, 0xe0, 0xf0};
    const std::size_t count = byteCount(codePoint);
    for (std::size_t i = count - 1; i > 0; i--) {
        dest[i] = static_cast<char>(0x80 | (codePoint & 0x3f));
        codePoint >>= 6;
    }
    dest[0] = static_cast<char>(kLeads[count] | codePoint);
}
}  // namespace

std::int32_t countUnitsOfUTF8(std::string_view bytes)
{
    if (bytes.size() > kMaxByteCount) return -1;
    std::size_t units = 0;
    std::size_t next = 0;
    while (next < bytes.size()) {
        const char32_t codePoint = readUTF8(bytes, &next);
        if (codePoint == kNone) return -1;
        units += unitCount(codePoint);
    }
    return static_cast<std::int32_t>(units);
}

std::size_t decodeUTF8(std::string_view bytes, std::span<char16_t> dest)
{
    std::size_t written = 0;
    std::size_t next = 0;
    while (next < bytes.size()) {
        const char32_t codePoint = readUTF8(bytes, &next);
        if (codePoint == kNone || unitCount(codePoint) > dest.size() - written) break;
        writeUTF16(codePoint, dest.data() + written);
        written += unitCount(codePoint);
    }
    return written;
}

std::int32_t countBytesOfUTF8(std::u16string_view units)
{
    std::size_t bytes = 0;
    std::size_t next = 0;
    while (next < units.size()) {
        const char32_t codePoint = readUTF16(units, &next);
        if (isSurrogate(codePoint)) return -1;
        bytes += byteCount(codePoint);
    }
    return bytes <= kMaxByteCount ? static_cast<std::int32_t>(bytes) : -1;
}

std::size_t encodeUTF8(std::u16string_view units, std::span<char> dest)
{
    std::size_t written = 0;
    std::size_t next = 0;
    while (next < units.size()) {
        const char32_t codePoint = readUTF16(units, &next);
        if (isSurrogate(codePoint) || byteCount(codePoint) > dest.size() - written) break;
        writeUTF8(codePoint, dest.data() + written);
        written += byteCount(codePoint);
    }
    return written;
}

std::string displayUTF8(std::u16string_view units)
{
    std::string text;
    text.reserve(units.size());
    std::size_t next = 0;
    while (next < units.size()) {
        char32_t codePoint = readUTF16(units, &next);
        if (isSurrogate(codePoint)) codePoint = kReplacement;
        char bytes[4];
        writeUTF8(codePoint, bytes);
        text.append(bytes, byteCount(codePoint));
    }
    return text;
}

}  // namespace pinorama
