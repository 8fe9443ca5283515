#include "lib/strings/tov_url.h"

#include "base/block_holder.h"
#include "base/utf8.h"
#include "lib/strings/string_holder.h"

#include <algorithm>

using namespace pinorama;

namespace {
constexpr std::size_t kEscapeLength = 3;  // "%20"

bool isHighSurrogate(char16_t unit)
{
    return (unit & 0xfc00) == 0xd800;
}

bool isLowSurrogate(char16_t unit)
{
    return (unit & 0xfc00) == 0xdc00;
}

// Stays as it is (RFC 2396, section 2.3).
bool isUnreserved(char16_t unit)
{
    if ((unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z')) return true;
    if (unit >= u'0' && unit <= u'9') return true;
    constexpr std::u16string_view kMarks = u"-_.!~*'()";
    return kMarks.find(unit) != std::u16string_view::npos;
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
        if (isUnreserved(units.front())) {
            put(units.front());
        } else {
            const std::u16string_view character = firstCharacter(units, length);
            char bytes[4];
            const std::size_t count = encodeUTF8(character, bytes);
            for (std::size_t i = 0; i < count; i++) {
                constexpr char16_t kDigits[] = u"0123456789ABCDEF";
                const auto byte = static_cast<unsigned char>(bytes[i]);
                put(u'%');
                put(kDigits[byte >> 4]);
                put(kDigits[byte & 0x0f]);
            }
        }
        units.remove_prefix(length);
    }
}

int digitValue(char16_t unit)
{
    if (unit >= u'0' && unit <= u'9') return unit - u'0';
    if (unit >= u'A' && unit <= u'F') return unit - u'A' + 10;
    if (unit >= u'a' && unit <= u'f') return unit - u'a' + 10;
    return -1;
}

// The byte of the escape at the beginning of `units`, or -1 when there is no proper one.
int escapedByte(std::u16string_view units)
{
    if (units.size() < kEscapeLength) return -1;
    const int high = digitValue(units[1]), low = digitValue(units[2]);
    return high < 0 || low < 0 ? -1 : high * 16 + low;
}

// Takes the escapes that `units` begins with and writes their bytes. The number of bytes, or -1 for
// an escape that is none.
std::int32_t takeEscapes(std::u16string_view& units, char* bytes)
{
    std::int32_t count = 0;
    while (!units.empty() && units.front() == u'%') {
        const int byte = escapedByte(units);
        if (byte < 0) return -1;
        bytes[count++] = static_cast<char>(byte);
        units.remove_prefix(kEscapeLength);
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
    if (length > kLongestString) return nullptr;

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
    const BlockHolder block(baseAllocate(units.size() / kEscapeLength));
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
