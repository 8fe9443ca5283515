#include "lib/conv/text_values.h"

#include "base/mac_roman.h"
#include "base/memory_guard.h"
#include "lib/objects/collections.h"
#include "lib/objects/object_holder.h"
#include "lib/strings/string_holder.h"
#include "lib/strings/tov_bytes.h"
#include "lib/strings/tov_search.h"
#include "lib/strings/tov_string.h"
#include "lib/text/date_parser.h"

#include <cstring>
#include <limits>
#include <string>

using namespace pinorama;

namespace {
constexpr std::uint8_t kCaseSensitive = 1;
constexpr std::size_t kCodeLength = 4;
constexpr std::uint32_t kBrennickFamily = 87;  // W

const struct {
    const char* unit;
    int timesKilo;  // how often the number is multiplied by 1024
} kSizeUnits[] = {{"bytes", 0}, {"KB", 1}, {"MB", 2}, {"GB", 3}};

std::uint64_t wholeBytes(double bytes)
{
    constexpr double kTwoTo63 = 9223372036854775808.0;
    if (bytes >= 2 * kTwoTo63) return std::numeric_limits<std::uint64_t>::max();
    if (bytes >= kTwoTo63) return static_cast<std::uint64_t>(bytes);
    if (bytes < -kTwoTo63) return std::uint64_t{1} << 63;
    return static_cast<std::uint64_t>(static_cast<std::int64_t>(bytes));
}

VardenTime readDate(const pinorama::DateParser* parser, std::u16string_view text)
{
    const ObjectHolder<TovDateRef> date(createDateFromText(parser, text));
    VardenTime time = 0;
    convCFDateRefToVardenTime(date.get(), &time);
    return time;
}

// The number in the two units from `start`, as 32 bits.
std::uint32_t twoDigits(TovStringRef text, std::int32_t start)
{
    const StringHolder piece(TovStringCreateWithSubstring(text, start, 2));
    return static_cast<std::uint32_t>(TovStringGetIntValue(piece.get()));
}
}  // namespace

std::uint64_t convGetSizeFromStringWithUnit(TovStringRef text)
{
    for (const auto& [unit, timesKilo] : kSizeUnits) {
        if (!TovStringEndsWithCString(text, unit, kCaseSensitive)) continue;
        // The character in front of the unit is taken for the separating blank, unseen.
        const std::int32_t length = TovStringGetLength(text) - TovStringGetCLength(unit) - 1;
        if (length < 0) return 0;
        const StringHolder number(TovStringCreateWithSubstring(text, 0, length));
        double bytes = TovStringGetDoubleValue(number.get());
        for (int i = 0; i < timesKilo; i++) bytes *= 1024.0;
        return wholeBytes(bytes);
    }
    return 0;
}

std::uint32_t convStringToOSType(TovStringRef text)
{
    const std::u16string_view units = unitsOf(text);
    if (units.size() < kCodeLength) return 0;
    std::uint8_t bytes[kCodeLength];
    for (std::size_t i = 0; i < kCodeLength; i++) {
        const int byte = macRomanByte(units[i]);
        bytes[i] = static_cast<std::uint8_t>(byte < 0 ? ' ' : byte);
    }
    std::uint32_t code = 0;
    std::memcpy(&code, bytes, sizeof code);
    return code;
}

TovStringRef convOSTypeToString(std::uint32_t code)
{
    char bytes[kCodeLength];
    std::memcpy(bytes, &code, sizeof bytes);
    return TovStringFromCString(bytes, static_cast<std::int32_t>(strnlen(bytes, sizeof bytes)));
}

TovStringRef convVDVersionToString(std::uint32_t version)
{
    std::string bytes = version >> 24 == kBrennickFamily ? "Brennick " : "Skallion ";
    const auto append = [&bytes](std::uint32_t digit) {
        const auto character = static_cast<char>('0' + (digit & 0xff));
        if (character != '\0') bytes += character;
    };
    append(version >> 16);
    bytes += '.';
    append(version >> 8);
    bytes += '.';
    append(version);
    return TovStringFromCString(bytes.data(), static_cast<std::int32_t>(bytes.size()));
}

double convRationalToFloat(std::uint32_t rational)
{
    const std::uint32_t numerator = rational & 0xffff;
    const std::uint32_t denominator = rational >> 16;
    if (numerator == 0 || denominator == 0) return 0.0;
    return static_cast<double>(numerator) / denominator;
}

VardenTime convGetGermanDateTimeAsVDTime(TovTypeRef dictionary, TovStringRef key)
{
    const TovTypeRef value = TovDictionaryGetValue(asDictionary(dictionary), key);
    return readDate(gGermanDateFormatter, unitsOf(asString(value)));
}

VardenTime convGetVDTimeFromDateAndTimeString(TovStringRef date, TovStringRef time)
{
    return baseGuardMemory([&]() -> VardenTime {
        if (date == nullptr || time == nullptr) return 0;
        std::u16string both(unitsOf(date));
        both += u' ';
        both += unitsOf(time);
        return readDate(gADCDateFormatter, both);
    });
}

VardenTime convConvertiViewDate(TovStringRef text)
{
    return readDate(gIVIEWDateFormatter2, unitsOf(text));
}

VardenTime convConvertiViewDateTime(TovStringRef text)
{
    return readDate(gIVIEWDateFormatter, unitsOf(text));
}

std::uint32_t convConvertiViewDuration(TovStringRef text)
{
    return twoDigits(text, 0) * 3600 + twoDigits(text, 3) * 60 + twoDigits(text, 6);
}
