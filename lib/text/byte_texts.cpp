#include "lib/text/byte_texts.h"

#include "base/mac_roman.h"
#include "base/utf8.h"

#include <span>

using namespace pinorama;

TovStringRef pinorama::createStringFromUTF8(std::string_view bytes)
{
    return createStringFromUTF8(bytes, countUnitsOfUTF8(bytes));
}

TovStringRef pinorama::createStringFromUTF8(std::string_view bytes, std::int32_t unitCount)
{
    if (unitCount < 0) return nullptr;
    TovStringRef string = createUnfilledString(unitCount);
    if (string == nullptr) return nullptr;
    const std::span<char16_t> units(string->units, static_cast<std::size_t>(unitCount));
    string->length = static_cast<std::int32_t>(decodeUTF8(bytes, units));
    return string;
}

TovStringRef pinorama::createStringFromMacRoman(std::string_view bytes)
{
    if (bytes.size() > static_cast<std::size_t>(kMaxStringLength)) return nullptr;
    TovStringRef string = createUnfilledString(static_cast<std::int32_t>(bytes.size()));
    if (string != nullptr) decodeMacRoman(bytes, string->units);
    return string;
}
