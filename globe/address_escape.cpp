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
}  // namespace

TovStringRef gpsEscapeForAddress(std::u16string_view name)
{
    return baseGuardMemory([&]() -> TovStringRef {
        const std::string escaped = percentEscaped(displayUTF8(name), kLegalInAddress);
        return createString(std::u16string(escaped.begin(), escaped.end()));
    });
}
