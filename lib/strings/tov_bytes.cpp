#include "lib/strings/tov_bytes.h"

#include "platform/text/mac_roman.h"
#include "platform/text/utf8.h"

namespace {
constexpr std::size_t kLongestPString = 255;

enum class Encoding { none, utf8, macRoman };

// The units of the byte form, and what they convert to.
struct ByteForm {
    std::u16string_view units;
    Encoding encoding;
};

// A text that does not convert as a whole has no byte form, even when the trouble lies behind the
// U+0000 that ends it.
ByteForm byteForm(TovStringRef string, Encoding preferred)
{
    const std::u16string_view units = platform::unitsOf(string);
    Encoding encoding = preferred;
    if (encoding == Encoding::macRoman && !platform::isMacRoman(units)) encoding = Encoding::utf8;
    if (encoding == Encoding::utf8 && platform::countBytesOfUTF8(units) < 0) {
        return {{}, Encoding::none};
    }
    return {units.substr(0, units.find(u'\0')), encoding};
}

std::uint32_t sizeOf(const ByteForm& form)
{
    if (form.encoding == Encoding::macRoman) return static_cast<std::uint32_t>(form.units.size());
    return static_cast<std::uint32_t>(platform::countBytesOfUTF8(form.units));
}

void copyOut(const ByteForm& form, char* dest, std::uint32_t* outSize)
{
    std::uint32_t size = 0;
    if (dest != nullptr) {
        size = sizeOf(form);
        if (form.encoding == Encoding::macRoman) platform::encodeMacRoman(form.units, dest);
        if (form.encoding == Encoding::utf8) platform::encodeUTF8(form.units, dest);
    }
    if (outSize != nullptr) *outSize = size;
}

bool isUsable(const void* elements, std::int32_t count)
{
    return count == 0 || (count > 0 && elements != nullptr);
}
}  // namespace

TovStringRef TovStringFromCString(const char* bytes, std::int32_t byteCount)
{
    if (!isUsable(bytes, byteCount)) return nullptr;
    return platform::createStringFromMacRoman({bytes, static_cast<std::size_t>(byteCount)});
}

TovStringRef TovStringFromUTF8(const char* bytes, std::int32_t byteCount)
{
    if (!isUsable(bytes, byteCount)) return nullptr;
    const std::string_view text(bytes, static_cast<std::size_t>(byteCount));
    const bool isUTF8 = platform::countUnitsOfUTF8(text) >= 0;
    return isUTF8 ? platform::createStringFromUTF8(text) : platform::createStringFromMacRoman(text);
}

TovStringRef TovStringFromUTF16(const char16_t* units, std::int32_t unitCount)
{
    if (!isUsable(units, unitCount)) return nullptr;
    return platform::createString({units, static_cast<std::size_t>(unitCount)});
}

TovStringRef TovStringFromPString(const std::uint8_t* pString)
{
    if (pString == nullptr) return nullptr;
    return platform::createStringFromMacRoman(
        {reinterpret_cast<const char*>(pString + 1), *pString});
}

std::uint32_t TovStringGetUTF8Size(TovStringRef string)
{
    return sizeOf(byteForm(string, Encoding::utf8));
}

void TovStringCopyToUTF8(TovStringRef string, char* dest, std::uint32_t* outSize)
{
    copyOut(byteForm(string, Encoding::utf8), dest, outSize);
}

std::uint32_t TovStringGetMacRomanSize(TovStringRef string)
{
    return sizeOf(byteForm(string, Encoding::macRoman));
}

void TovStringCopyToMacRoman(TovStringRef string, char* dest, std::uint32_t* outSize)
{
    copyOut(byteForm(string, Encoding::macRoman), dest, outSize);
}

bool TovStringCopyToPString(TovStringRef string, std::uint8_t* dest)
{
    if (dest == nullptr) return false;
    dest[0] = 0;
    if (string == nullptr) return false;
    const std::u16string_view units = platform::unitsOf(string);
    if (units.size() > kLongestPString || !platform::isMacRoman(units)) return false;
    platform::encodeMacRoman(units, reinterpret_cast<char*>(dest + 1));
    dest[0] = static_cast<std::uint8_t>(units.size());
    return true;
}
