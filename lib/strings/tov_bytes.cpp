#include "lib/strings/tov_bytes.h"

#include "base/mac_roman.h"
#include "base/utf8.h"
#include "lib/text/byte_texts.h"

using namespace pinorama;

namespace {
constexpr std::size_t kMaxPStringLength = 255;

enum class Encoding { none, utf8, macRoman };

// The units of the byte form, what they convert to and how many bytes that makes.
struct ByteForm {
    std::u16string_view units;
    Encoding encoding;
    std::uint32_t size;
};

// The bytes of the converted units, or -1 when they do not convert.
std::int32_t sizeOf(std::u16string_view units, Encoding encoding)
{
    if (encoding == Encoding::macRoman) return static_cast<std::int32_t>(units.size());
    return countBytesOfUTF8(units);
}

// A text that does not convert completely has no byte form, even if the cause lies after the
// U+0000 that ends it.
ByteForm byteForm(TovStringRef string, Encoding preferred)
{
    const std::u16string_view whole = unitsOf(string);
    const bool isMacRoman = preferred == Encoding::macRoman && pinorama::isMacRoman(whole);
    const Encoding encoding = isMacRoman ? Encoding::macRoman : Encoding::utf8;
    std::int32_t size = sizeOf(whole, encoding);
    if (size < 0) return {{}, Encoding::none, 0};

    const std::u16string_view units = whole.substr(0, whole.find(u'\0'));
    if (units.size() < whole.size()) size = sizeOf(units, encoding);
    return {units, encoding, static_cast<std::uint32_t>(size)};
}

void copyOut(const ByteForm& form, char* dest, std::uint32_t* outSize)
{
    std::size_t written = 0;
    if (dest != nullptr && form.encoding == Encoding::macRoman) {
        encodeMacRoman(form.units, dest);
        written = form.units.size();
    } else if (dest != nullptr) {
        written = encodeUTF8(form.units, {dest, form.size});
    }
    // Not what was counted, so that nobody takes a byte for text that was not written.
    if (outSize != nullptr) *outSize = static_cast<std::uint32_t>(written);
}

bool isUsable(const void* elements, std::int32_t count)
{
    return count == 0 || (count > 0 && elements != nullptr);
}
}  // namespace

TovStringRef TovStringFromCString(const char* bytes, std::int32_t byteCount)
{
    if (!isUsable(bytes, byteCount)) return nullptr;
    return createStringFromMacRoman({bytes, static_cast<std::size_t>(byteCount)});
}

TovStringRef TovStringFromUTF8(const char* bytes, std::int32_t byteCount)
{
    if (!isUsable(bytes, byteCount)) return nullptr;
    const std::string_view text(bytes, static_cast<std::size_t>(byteCount));
    const std::int32_t unitCount = countUnitsOfUTF8(text);
    if (unitCount < 0) return createStringFromMacRoman(text);
    return createStringFromUTF8(text, unitCount);
}

TovStringRef TovStringFromUTF16(const char16_t* units, std::int32_t unitCount)
{
    if (!isUsable(units, unitCount)) return nullptr;
    return createString({units, static_cast<std::size_t>(unitCount)});
}

TovStringRef TovStringFromPString(const std::uint8_t* pString)
{
    if (pString == nullptr) return nullptr;
    return createStringFromMacRoman({reinterpret_cast<const char*>(pString + 1), *pString});
}

std::uint32_t TovStringGetUTF8Size(TovStringRef string)
{
    return byteForm(string, Encoding::utf8).size;
}

void TovStringCopyToUTF8(TovStringRef string, char* dest, std::uint32_t* outSize)
{
    copyOut(byteForm(string, Encoding::utf8), dest, outSize);
}

std::uint32_t TovStringGetMacRomanSize(TovStringRef string)
{
    return byteForm(string, Encoding::macRoman).size;
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
    const std::u16string_view units = unitsOf(string);
    if (units.size() > kMaxPStringLength || !isMacRoman(units)) return false;
    encodeMacRoman(units, reinterpret_cast<char*>(dest + 1));
    dest[0] = static_cast<std::uint8_t>(units.size());
    return true;
}
