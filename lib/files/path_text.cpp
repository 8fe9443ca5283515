#include "lib/files/path_text.h"

#include "base/memory_guard.h"
#include "base/utf8.h"
#include "lib/text/byte_texts.h"

using namespace pinorama;

namespace {
constexpr char16_t kFirstByteUnit = 0xdc80;  // U+DC00 + 0x80
constexpr char16_t kLastByteUnit = 0xdcff;

bool isHighSurrogate(char16_t unit)
{
    return (unit & 0xfc00) == 0xd800;
}

bool isLowSurrogate(char16_t unit)
{
    return (unit & 0xfc00) == 0xdc00;
}

// The length in bytes of the valid UTF-8 character at the start of `bytes`, or 0.
std::size_t validCharacterLength(std::string_view bytes)
{
    for (std::size_t length = 1; length <= 4 && length <= bytes.size(); length++) {
        if (countUnitsOfUTF8(bytes.substr(0, length)) > 0) return length;
    }
    return 0;
}

std::u16string unitsOfDamagedPath(std::string_view bytes)
{
    std::u16string units;
    while (!bytes.empty()) {
        const std::size_t length = validCharacterLength(bytes);
        if (length == 0) {
            units += static_cast<char16_t>(0xdc00 + static_cast<unsigned char>(bytes.front()));
            bytes.remove_prefix(1);
            continue;
        }
        char16_t character[2];
        units.append(character, decodeUTF8(bytes.substr(0, length), character));
        bytes.remove_prefix(length);
    }
    return units;
}
}  // namespace

TovStringRef pinorama::createPathText(std::string_view bytes)
{
    return baseGuardMemory([&]() -> TovStringRef {
        if (countUnitsOfUTF8(bytes) >= 0) return createStringFromUTF8(bytes);
        return createString(unitsOfDamagedPath(bytes));
    });
}

std::string pinorama::pathBytes(const TovString* path)
{
    const std::u16string_view units = unitsOf(path);
    const std::int32_t byteCount = countBytesOfUTF8(units);
    if (byteCount >= 0) {
        std::string bytes(static_cast<std::size_t>(byteCount), '\0');
        bytes.resize(encodeUTF8(units, bytes));
        return bytes;
    }
    std::string bytes;
    for (std::size_t i = 0; i < units.size(); i++) {
        const bool isPair =
            isHighSurrogate(units[i]) && i + 1 < units.size() && isLowSurrogate(units[i + 1]);
        if (!isPair && units[i] >= kFirstByteUnit && units[i] <= kLastByteUnit) {
            bytes += static_cast<char>(units[i] - 0xdc00);
            continue;
        }
        bytes += displayUTF8(units.substr(i, isPair ? 2 : 1));
        if (isPair) i++;
    }
    return bytes;
}
