#include "platform/text/utf8.h"

#include "platform/text/ascii.h"

#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include <algorithm>

namespace {
constexpr std::size_t kBlock = 16;  // units that are measured together

bool fits(std::size_t count)
{
    return count <= static_cast<std::size_t>(platform::kLongestString);
}

// The bytes of a block beyond one for each unit, or -1 when it holds a surrogate.
int extraBytesOf(const char16_t* block)
{
    std::uint16_t extra = 0;
    std::uint16_t surrogates = 0;
    for (std::size_t i = 0; i < kBlock; i++) {
        extra = static_cast<std::uint16_t>(extra + (block[i] >= 0x80) + (block[i] >= 0x800));
        surrogates = static_cast<std::uint16_t>(surrogates + ((block[i] & 0xf800) == 0xd800));
    }
    return surrogates == 0 ? extra : -1;
}
}  // namespace

std::int32_t platform::countUnitsOfUTF8(std::string_view bytes)
{
    if (!fits(bytes.size())) return -1;
    const auto byteCount = static_cast<std::int32_t>(bytes.size());
    std::int32_t next = 0;
    std::int32_t units = 0;
    while (next < byteCount) {
        const auto plain =
            static_cast<std::int32_t>(asciiLength(bytes.substr(static_cast<std::size_t>(next))));
        next += plain;
        units += plain;
        while (next < byteCount && !U8_IS_SINGLE(bytes[static_cast<std::size_t>(next)])) {
            UChar32 codePoint = 0;
            U8_NEXT(bytes.data(), next, byteCount, codePoint);
            if (codePoint < 0) return -1;
            units += U16_LENGTH(codePoint);
        }
    }
    return units;
}

void platform::decodeUTF8(std::string_view bytes, char16_t* dest)
{
    std::size_t next = 0;
    while (next < bytes.size()) {
        const std::string_view rest = bytes.substr(next);
        const std::size_t plain = asciiLength(rest);
        widenASCII(rest.substr(0, plain), dest);
        dest += plain;
        next += plain;
        while (next < bytes.size() && !U8_IS_SINGLE(bytes[next])) {
            UChar32 codePoint = 0;
            U8_NEXT_UNSAFE(bytes.data(), next, codePoint);
            std::size_t written = 0;
            U16_APPEND_UNSAFE(dest, written, codePoint);
            dest += written;
        }
    }
}

std::int32_t platform::countBytesOfUTF8(std::u16string_view units)
{
    std::size_t bytes = 0;
    std::size_t next = 0;
    while (next < units.size()) {
        const int extra = next + kBlock <= units.size() ? extraBytesOf(units.data() + next) : -1;
        if (extra >= 0) {
            bytes += kBlock + static_cast<std::size_t>(extra);
            next += kBlock;
            continue;
        }
        const std::size_t end = std::min(next + kBlock, units.size());
        while (next < end) {
            UChar32 codePoint = 0;
            U16_NEXT(units.data(), next, units.size(), codePoint);
            if (U_IS_SURROGATE(codePoint)) return -1;
            bytes += U8_LENGTH(codePoint);
        }
    }
    return fits(bytes) ? static_cast<std::int32_t>(bytes) : -1;
}

void platform::encodeUTF8(std::u16string_view units, char* dest)
{
    std::size_t next = 0;
    while (next < units.size()) {
        const std::u16string_view rest = units.substr(next);
        const std::size_t plain = asciiLength(rest);
        narrowASCII(rest.substr(0, plain), dest);
        dest += plain;
        next += plain;
        while (next < units.size() && !isASCII(units[next])) {
            UChar32 codePoint = 0;
            U16_NEXT(units.data(), next, units.size(), codePoint);
            std::size_t written = 0;
            U8_APPEND_UNSAFE(dest, written, codePoint);
            dest += written;
        }
    }
}

TovStringRef platform::createStringFromUTF8(std::string_view bytes)
{
    const std::int32_t units = countUnitsOfUTF8(bytes);
    if (units < 0) return nullptr;
    TovStringRef string = createUnfilledString(units);
    if (string != nullptr) decodeUTF8(bytes, string->units);
    return string;
}

std::string platform::displayUTF8(std::u16string_view units)
{
    std::string text;
    text.reserve(units.size());
    std::size_t next = 0;
    while (next < units.size()) {
        UChar32 codePoint = 0;
        U16_NEXT(units.data(), next, units.size(), codePoint);
        if (U_IS_SURROGATE(codePoint)) codePoint = 0xfffd;
        char bytes[U8_MAX_LENGTH];
        std::size_t count = 0;
        U8_APPEND_UNSAFE(bytes, count, codePoint);
        text.append(bytes, count);
    }
    return text;
}
