#include "platform/text/utf8.h"

#include "platform/text/ascii.h"

#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include <algorithm>

namespace {
bool fits(std::size_t count)
{
    return count <= static_cast<std::size_t>(platform::kLongestString);
}
}  // namespace

std::int32_t platform::countUnitsOfUTF8(std::string_view bytes)
{
    if (!fits(bytes.size())) return -1;
    std::size_t units = 0;
    std::size_t next = 0;
    while (next < bytes.size()) {
        if (U8_IS_SINGLE(bytes[next])) {
            const std::size_t plain = asciiLength(bytes.substr(next));
            next += plain;
            units += plain;
            continue;
        }
        UChar32 codePoint = 0;
        U8_NEXT(bytes.data(), next, bytes.size(), codePoint);
        if (codePoint < 0) return -1;
        units += U16_LENGTH(codePoint);
    }
    return static_cast<std::int32_t>(units);
}

std::size_t platform::decodeUTF8(std::string_view bytes, std::span<char16_t> dest)
{
    std::size_t written = 0;
    std::size_t next = 0;
    while (next < bytes.size()) {
        if (U8_IS_SINGLE(bytes[next])) {
            const std::size_t plain =
                std::min(asciiLength(bytes.substr(next)), dest.size() - written);
            if (plain == 0) break;
            widenASCII(bytes.substr(next, plain), dest.data() + written);
            next += plain;
            written += plain;
            continue;
        }
        UChar32 codePoint = 0;
        U8_NEXT(bytes.data(), next, bytes.size(), codePoint);
        if (codePoint < 0 || U16_LENGTH(codePoint) > dest.size() - written) break;
        U16_APPEND_UNSAFE(dest.data(), written, codePoint);
    }
    return written;
}

std::int32_t platform::countBytesOfUTF8(std::u16string_view units)
{
    std::size_t bytes = 0;
    std::size_t next = 0;
    while (next < units.size()) {
        if (isASCII(units[next])) {
            const std::size_t plain = asciiLength(units.substr(next));
            next += plain;
            bytes += plain;
            continue;
        }
        UChar32 codePoint = 0;
        U16_NEXT(units.data(), next, units.size(), codePoint);
        if (U_IS_SURROGATE(codePoint)) return -1;
        bytes += U8_LENGTH(codePoint);
    }
    return fits(bytes) ? static_cast<std::int32_t>(bytes) : -1;
}

std::size_t platform::encodeUTF8(std::u16string_view units, std::span<char> dest)
{
    std::size_t written = 0;
    std::size_t next = 0;
    while (next < units.size()) {
        if (isASCII(units[next])) {
            const std::size_t plain =
                std::min(asciiLength(units.substr(next)), dest.size() - written);
            if (plain == 0) break;
            narrowASCII(units.substr(next, plain), dest.data() + written);
            next += plain;
            written += plain;
            continue;
        }
        UChar32 codePoint = 0;
        U16_NEXT(units.data(), next, units.size(), codePoint);
        if (U_IS_SURROGATE(codePoint) || U8_LENGTH(codePoint) > dest.size() - written) break;
        U8_APPEND_UNSAFE(dest.data(), written, codePoint);
    }
    return written;
}

TovStringRef platform::createStringFromUTF8(std::string_view bytes)
{
    return createStringFromUTF8(bytes, countUnitsOfUTF8(bytes));
}

TovStringRef platform::createStringFromUTF8(std::string_view bytes, std::int32_t unitCount)
{
    if (unitCount < 0) return nullptr;
    TovStringRef string = createUnfilledString(unitCount);
    if (string == nullptr) return nullptr;
    const std::span<char16_t> room(string->units, static_cast<std::size_t>(unitCount));
    string->length = static_cast<std::int32_t>(decodeUTF8(bytes, room));
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
