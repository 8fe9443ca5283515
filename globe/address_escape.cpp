#include "globe/address_escape.h"

#include "base/memory_guard.h"
#include "base/utf8.h"

#include <string>

using namespace pinorama;

namespace {
bool isLegalInAddress(char byte)
{
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') ||
           (byte >= '0' && byte <= '9') ||
           std::string_view("-_.!~*'();/?:@&=+$,").find(byte) != std::string_view::npos;
}
}  // namespace

TovStringRef gpsEscapeForAddress(std::u16string_view name)
{
    return baseGuardMemory([&]() -> TovStringRef {
        constexpr std::u16string_view kDigits = u"0123456789ABCDEF";
        std::u16string escaped;
        for (const char byte : displayUTF8(name)) {
            if (isLegalInAddress(byte)) {
                escaped += static_cast<char16_t>(byte);
            } else {
                const auto value = static_cast<unsigned char>(byte);
                escaped += {u'%', kDigits[value >> 4], kDigits[value & 15]};
            }
        }
        return createString(escaped);
    });
}
