#include "lib/strings/tov_string.h"

#include "base/ascii.h"
#include "base/mac_roman.h"
#include "base/random_bytes.h"
#include "lib/text/leading_number.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <iterator>
#include <limits>

using namespace pinorama;

namespace {
constexpr std::int32_t kUUIDByteCount = 16;
constexpr std::int32_t kUUIDLength = 36;

// The text that a pointer to a handle names, or null.
TovStringRef targetOf(TovStringRef* target)
{
    return target == nullptr ? nullptr : *target;
}

bool hasHyphenBefore(std::int32_t byteIndex)
{
    return byteIndex == 4 || byteIndex == 6 || byteIndex == 8 || byteIndex == 10;
}
}  // namespace

TovStringRef TovStringGetEmpty()
{
    return nullptr;
}

TovStringRef TovStringCreateMutable()
{
    return createString({}, true);
}

TovStringRef TovStringGetCopy(TovStringRef string)
{
    if (string == nullptr) return nullptr;
    return createString(unitsOf(string), true);
}

TovStringRef TovStringCreateWithSubstring(TovStringRef string, std::int32_t start,
                                          std::int32_t length)
{
    if (string == nullptr) return nullptr;
    const std::int64_t textLength = string->length;
    const std::int64_t end = std::int64_t{start} + length;
    const std::int64_t first = std::clamp<std::int64_t>(start, 0, textLength);
    const std::int64_t last = std::clamp<std::int64_t>(end, first, textLength);
    return createString({string->units + first, static_cast<std::size_t>(last - first)});
}

TovStringRef TovGetUUIDString()
{
    std::uint8_t bytes[kUUIDByteCount];
    if (!fillWithRandomBytes(bytes, sizeof bytes)) return nullptr;
    bytes[6] = static_cast<std::uint8_t>((bytes[6] & 0x0f) | 0x40);  // version 4: random
    bytes[8] = static_cast<std::uint8_t>((bytes[8] & 0x3f) | 0x80);  // the variant of RFC 4122

    TovStringRef text = createUnfilledString(kUUIDLength);
    if (text == nullptr) return nullptr;
    char16_t* next = text->units;
    for (std::int32_t i = 0; i < kUUIDByteCount; i++) {
        if (hasHyphenBefore(i)) *next++ = u'-';
        *next++ = static_cast<char16_t>(kHexDigits[bytes[i] >> 4]);
        *next++ = static_cast<char16_t>(kHexDigits[bytes[i] & 0x0f]);
    }
    return text;
}

void TovStringInvalidate(TovStringRef* string)
{
    if (string != nullptr) *string = nullptr;
}

std::int16_t TovStringRelease(TovStringRef* string)
{
    if (string != nullptr) {
        releaseObject(*string);
        *string = nullptr;
    }
    return 0;
}

bool TovStringIsValid(TovStringRef string)
{
    return string != nullptr;
}

std::int32_t TovStringGetLength(TovStringRef string)
{
    return string == nullptr ? 0 : string->length;
}

std::int32_t TovStringGetCLength(const char* text)
{
    if (text == nullptr) return 0;
    constexpr std::size_t kMax = std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(std::min(std::strlen(text), kMax));
}

char16_t TovStringGetUniChar(TovStringRef string, std::int32_t index)
{
    if (string == nullptr || index < 0 || index >= string->length) return 0;
    return string->units[index];
}

std::int32_t TovStringGetIntValue(TovStringRef string)
{
    return leadingInteger(unitsOf(string));
}

double TovStringGetDoubleValue(TovStringRef string)
{
    return leadingDouble(unitsOf(string));
}

void TovStringAppendCString(TovStringRef* target, const char* text)
{
    if (text == nullptr) return;
    const std::string_view bytes(text);
    if (bytes.size() > static_cast<std::size_t>(kMaxStringLength)) return;
    char16_t* dest = extendUnits(targetOf(target), static_cast<std::int32_t>(bytes.size()));
    if (dest != nullptr) decodeMacRoman(bytes, dest);
}

void TovStringAppendTovString(TovStringRef* target, TovStringRef string)
{
    (void)appendUnits(targetOf(target), unitsOf(string));
}

void TovStringAppendNumber(TovStringRef* target, std::uint64_t value)
{
    char digits[std::numeric_limits<std::uint64_t>::digits10 + 1];
    const char* end = std::to_chars(std::begin(digits), std::end(digits), value).ptr;
    char16_t* dest = extendUnits(targetOf(target), static_cast<std::int32_t>(end - digits));
    if (dest != nullptr) std::copy<const char*>(digits, end, dest);
}
