#include "location/dictionary_getters.h"

#include "lib/conv/mac_time.h"
#include "lib/strings/string_holder.h"
#include "lib/strings/tov_display.h"
#include "lib/strings/tov_string.h"

using namespace pinorama;

namespace {
constexpr std::uint32_t kVersionFamily = 0x30000000;
constexpr std::uint32_t kDigitZero = 48;
constexpr std::uint32_t kNoVersion = 1;

// The value of a key whatever its kind, borrowed, or null.
TovTypeRef valueOf(TovTypeRef container, TovStringRef key)
{
    return TovDictionaryGetValue(asDictionary(container), key);
}

std::int64_t integerOf(TovTypeRef value)
{
    const TovNumber* number = asNumber(value);
    return number == nullptr ? 0 : number->integer;
}
}  // namespace

std::uint16_t convGetUInt16(TovTypeRef container, TovStringRef key)
{
    return static_cast<std::uint16_t>(integerOf(valueOf(container, key)));
}

std::uint32_t convGetUInt32(TovTypeRef container, TovStringRef key)
{
    return static_cast<std::uint32_t>(integerOf(valueOf(container, key)));
}

std::uint64_t convGetUInt64(TovTypeRef container, TovStringRef key)
{
    return static_cast<std::uint64_t>(integerOf(valueOf(container, key)));
}

float convGetFloat(TovTypeRef container, TovStringRef key)
{
    return static_cast<float>(convGetDouble(container, key));
}

double convGetDouble(TovTypeRef container, TovStringRef key)
{
    const TovNumber* number = asNumber(valueOf(container, key));
    return number == nullptr ? 0.0 : number->floating;
}

bool convGetBoolean(TovTypeRef container, TovStringRef key)
{
    const TovBoolean* boolean = asBoolean(valueOf(container, key));
    return boolean != nullptr && boolean->value;
}

VardenTime convGetVDTime(TovTypeRef container, TovStringRef key)
{
    VardenTime time = 0;
    convCFDateRefToVardenTime(asDate(valueOf(container, key)), &time);
    return time;
}

VardenTime convGetDate(TovTypeRef container, TovStringRef key)
{
    return convGetVDTime(container, key);
}

std::uint32_t convGetNumberFromArray(TovTypeRef array, std::int32_t index)
{
    return static_cast<std::uint32_t>(integerOf(TovArrayGetValue(asArray(array), index)));
}

TovStringRef convGetTovStringRef(TovTypeRef container, TovStringRef key)
{
    return asString(valueOf(container, key));
}

TovStringRef convCopyTovStringRef(TovTypeRef container, TovStringRef key)
{
    const TovTypeRef value = valueOf(container, key);
    if (TovStringRef string = asString(value)) {
        return createString(unitsOf(string));
    }
    if (asNumber(value) == nullptr) return nullptr;
    return TovMakeNumberString(static_cast<std::uint32_t>(integerOf(value)));
}

TovStringRef convCopyTovStringRefFromArrayOfStrings(TovTypeRef container, TovStringRef key)
{
    const TovArrayRef array = asArray(valueOf(container, key));
    if (array == nullptr) return nullptr;

    StringHolder joined(TovStringCreateMutable());
    const std::int32_t count = TovArrayGetCount(array);
    for (std::int32_t i = 0; joined && i < count; i++) {
        TovStringRef element = asString(TovArrayGetValue(array, i));
        if (element == nullptr) continue;
        // The index decides, not what follows: texts in front of a number keep their line feed.
        const std::u16string_view end = i != count - 1 ? u"\n" : u"";
        if (!appendUnits(joined.get(), unitsOf(element)) || !appendUnits(joined.get(), end)) {
            return nullptr;
        }
    }
    return joined.take();
}

std::uint64_t convGetUInt64FromDictString(TovTypeRef container, TovStringRef key)
{
    const std::int64_t value = TovStringGetIntValue(convGetTovStringRef(container, key));
    return static_cast<std::uint64_t>(value);
}

std::uint32_t convGetVersion(TovTypeRef container, TovStringRef key)
{
    const TovArrayRef array = asArray(valueOf(container, key));
    if (array == nullptr) return kNoVersion;

    const auto count = static_cast<std::int16_t>(TovArrayGetCount(array));
    const auto part = [array](std::int32_t index) {
        return static_cast<std::uint16_t>(convGetNumberFromArray(array, index) + kDigitZero);
    };
    // The lower two parts are signed 16-bit numbers and borrow from those above when negative.
    const auto signedPart = [part](std::int32_t index) {
        return static_cast<std::uint32_t>(static_cast<std::int16_t>(part(index)));
    };
    const std::uint32_t major = count >= 1 ? part(0) : 0;
    const std::uint32_t minor = count > 1 ? signedPart(1) : 0;
    const std::uint32_t third = count >= 3 ? signedPart(2) : 0;
    return kVersionFamily + (major << 16) + (minor << 8) + third;
}

void convCFDateRefToMacTime(TovDateRef date, std::uint32_t* outSeconds)
{
    *outSeconds = date == nullptr ? 0 : macSecondsOnLocalClock(TovDateGetAbsoluteTime(date));
}
