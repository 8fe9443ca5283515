#include "platform/text/utf8.h"

#include <unicode/ustring.h>
#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include <algorithm>

namespace {
bool isASCII(std::string_view bytes)
{
    return std::all_of(bytes.begin(), bytes.end(), [](char c) { return (c & 0x80) == 0; });
}

bool fits(std::size_t count)
{
    return count <= static_cast<std::size_t>(platform::kLongestString);
}
}  // namespace

std::int32_t platform::countUnitsOfUTF8(std::string_view bytes)
{
    if (!fits(bytes.size())) return -1;
    const auto byteCount = static_cast<std::int32_t>(bytes.size());
    if (isASCII(bytes)) return byteCount;
    std::int32_t units = 0;
    UErrorCode status = U_ZERO_ERROR;
    u_strFromUTF8(nullptr, 0, &units, bytes.data(), byteCount, &status);
    return status == U_BUFFER_OVERFLOW_ERROR || U_SUCCESS(status) ? units : -1;
}

void platform::decodeUTF8(std::string_view bytes, char16_t* dest)
{
    std::int32_t next = 0;
    const auto byteCount = static_cast<std::int32_t>(bytes.size());
    std::int32_t units = 0;
    while (next < byteCount) {
        UChar32 codePoint = 0;
        U8_NEXT_UNSAFE(bytes.data(), next, codePoint);
        U16_APPEND_UNSAFE(dest, units, codePoint);
    }
}

std::int32_t platform::countBytesOfUTF8(std::u16string_view units)
{
    std::int64_t bytes = 0;
    std::size_t next = 0;
    while (next < units.size()) {
        UChar32 codePoint = 0;
        U16_NEXT(units.data(), next, units.size(), codePoint);
        if (U_IS_SURROGATE(codePoint)) return -1;
        bytes += U8_LENGTH(codePoint);
    }
    return fits(static_cast<std::size_t>(bytes)) ? static_cast<std::int32_t>(bytes) : -1;
}

void platform::encodeUTF8(std::u16string_view units, char* dest)
{
    std::size_t next = 0;
    std::size_t bytes = 0;
    while (next < units.size()) {
        UChar32 codePoint = 0;
        U16_NEXT(units.data(), next, units.size(), codePoint);
        U8_APPEND_UNSAFE(dest, bytes, codePoint);
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
