#include "lib/strings/tov_url.h"

#include "base/block_holder.h"
#include "base/percent_escape.h"
#include "base/utf8.h"
#include "lib/strings/string_holder.h"

#include <algorithm>

using namespace pinorama;

namespace {
bool isHighSurrogate(char16_t unit)
{
    return (unit & 0xfc00) == 0xd800;
}

bool isLowSurrogate(char16_t unit)
{
    return (unit & 0xfc00) == 0xdc00;
}

// The character at the beginning of `units`, or U+FFFD for a lone surrogate.
std::u16string_view firstCharacter(std::u16string_view units, std::size_t& length)
{
    const bool isPair = units.size() > 1 && isHighSurrogate(units[0]) && isLowSurrogate(units[1]);
    length = isPair ? 2 : 1;
    const bool isLone = !isPair && (isHighSurrogate(units[0]) || isLowSurrogate(units[0]));
    return isLone ? std::u16string_view(u"\ufffd") : units.substr(0, length);
}

// Calls `put` for every unit of the escaped text.
template <typename Put>
void escape(std::u16string_view units, Put put)
{
    while (!units.empty()) {
        std::size_t length = 1;
        if (isPlainInURI(units.front(), kUnreservedRFC2396)) {
            put(units.front());
        } else {
            const std::u16string_view character = firstCharacter(units, length);
            char bytes[4];
            const std::size_t count = encodeUTF8(character, bytes);
            for (std::size_t i = 0; i < count; i++) putPercentEscape(bytes[i], put);
        }
        units.remove_prefix(length);
    }
}

// Takes the escapes that `units` begins with and writes their bytes. The number of bytes, or -1 if
// one is malformed.
std::int32_t takeEscapes(std::u16string_view& units, char* bytes)
{
    std::int32_t count = 0;
    while (!units.empty() && units.front() == u'%') {
        const int byte = percentEscapedByte(units);
        if (byte < 0) return -1;
        bytes[count++] = static_cast<char>(byte);
        units.remove_prefix(kPercentEscapeLength);
    }
    return count;
}

TovStringRef sharedEmptyText()
{
    static char16_t noUnits[1] = {};
    static TovString empty = {{TovTypeID::string, kSharedForever}, false, 0, 0, noUnits};
    return &empty;
}
}  // namespace

TovStringRef TovStringConvertToURL(TovStringRef text)
{
    if (text == nullptr) return sharedEmptyText();
    const std::u16string_view units = unitsOf(text);
    std::int64_t length = 0;
    escape(units, [&length](char16_t) { length++; });
    if (length > kMaxStringLength) return nullptr;

    TovStringRef escaped = createUnfilledString(static_cast<std::int32_t>(length));
    if (escaped == nullptr) return nullptr;
    char16_t* next = escaped->units;
    char16_t* const end = next + length;
    escape(units, [&next, end](char16_t unit) {
        if (next != end) *next++ = unit;
    });
    escaped->length = static_cast<std::int32_t>(next - escaped->units);
    return escaped;
}

TovStringRef TovStringConvertFromURL(TovStringRef text)
{
    if (text == nullptr) return nullptr;
    std::u16string_view units = unitsOf(text);
    StringHolder decoded(createUnfilledString(text->length));  // escapes only shorten
    const BlockHolder block(baseAllocate(units.size() / kPercentEscapeLength));
    if (!decoded || !block) return nullptr;

    char* bytes = static_cast<char*>(block.get());
    char16_t* next = decoded.get()->units;
    char16_t* const end = next + text->length;
    while (!units.empty()) {
        const std::size_t plain = std::min(units.find(u'%'), units.size());
        next = std::copy_n(units.data(), plain, next);
        units.remove_prefix(plain);

        const std::int32_t count = takeEscapes(units, bytes);
        if (count < 0) return nullptr;
        const std::string_view run(bytes, static_cast<std::size_t>(count));
        if (countUnitsOfUTF8(run) < 0) return nullptr;
        next += decodeUTF8(run, {next, end});
    }
    decoded.get()->length = static_cast<std::int32_t>(next - decoded.get()->units);
    return decoded.take();
}
