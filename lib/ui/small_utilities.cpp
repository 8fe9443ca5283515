#include "lib/ui/small_utilities.h"

#include <algorithm>
#include <cstddef>

using namespace pinorama;

namespace {
constexpr std::size_t kMaxNameLength = 255;  // units of a counted name
}

double radians(double degrees)
{
    return 3.141592653589793 * degrees / 180;
}

void uCFRelease(TovTypeRef ref)
{
    releaseObject(ref);
}

bool uAltPressed()
{
    return false;
}

void utMakeHFSStringFromCFString(TovStringRef string, HFSUniStr255* name)
{
    const std::u16string_view units = unitsOf(string).substr(0, kMaxNameLength);
    std::copy(units.begin(), units.end(), name->unicode);
    name->length = static_cast<std::uint16_t>(units.size());
}

TovStringRef utMakeCFStringFromHFSString(const HFSUniStr255* name, TovStringRef* out)
{
    const std::size_t length = std::min<std::size_t>(name->length, kMaxNameLength);
    *out = createString({name->unicode, length});
    return *out;
}

void utEndianSwapIntArray(std::uint16_t* values, std::uint32_t count)
{
    for (std::uint32_t i = 0; i < count; i++) {
        values[i] = static_cast<std::uint16_t>(values[i] << 8 | values[i] >> 8);
    }
}
