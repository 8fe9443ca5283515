#include "globe/address_escape.h"

#include "base/memory_guard.h"
#include "base/percent_escape.h"
#include "base/utf8.h"

#include <string>

using namespace pinorama;

namespace {
// RFC 2396: the unreserved marks, and the characters that are reserved (section 2.2).
constexpr std::string_view kLegalInAddress = "-_.!~*'();/?:@&=+$,";
static_assert(kLegalInAddress.starts_with(kUnreservedRFC2396));

TovStringRef createEscaped(std::u16string_view name, std::string_view marks)
{
    return baseGuardMemory([&]() -> TovStringRef {
        const std::string escaped = percentEscaped(displayUTF8(name), marks);
        return createString(std::u16string(escaped.begin(), escaped.end()));
    });
}
}  // namespace

TovStringRef gpsEscapeForAddress(std::u16string_view name)
{
    return createEscaped(name, kLegalInAddress);
}

TovStringRef gpsEscapeForAddressValue(std::u16string_view name)
{
    return createEscaped(name, kUnreservedRFC3986);
}
