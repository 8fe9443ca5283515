#include "lib/strings/tov_display.h"

#include "base/mac_roman.h"
#include "base/memory_guard.h"
#include "lib/strings/string_holder.h"
#include "lib/strings/tov_format.h"
#include "lib/text/byte_texts.h"
#include "lib/text/date_format.h"
#include "lib/text/locale.h"
#include "lib/ui/string_tables.h"

#include <cmath>
#include <cstring>

using namespace pinorama;

pinorama::NumberFormat* gThousandFormatter = nullptr;
pinorama::NumberFormat* gOneFractionDigitFormatter = nullptr;

namespace {
constexpr std::int16_t kSizeWords = 1001;  // table of the unit words
constexpr std::int16_t kKiloWord = 46;
constexpr std::int16_t kMegaWord = 3;
constexpr std::int16_t kGigaWord = 31;
constexpr std::int16_t kTeraWord = 123;
constexpr std::int16_t kBytesWord = 93;

constexpr std::uint32_t kSecondsPerHour = 3600;
constexpr std::int64_t kMacSecondsOf1970 = 2082844800;

// A unit in which sizes are shown.
struct SizeUnit {
    int shift;  // the unit is 2^shift bytes
    std::int16_t word;
    char letter;
};

SizeUnit unitFor(std::uint64_t bytes)
{
    // The comparisons are strict, so that a unit begins one step late: 1 MiB is 1024 K. Intended;
    // pinned by TovStringMakeSizeString.changesUnitsOneStepLate.
    const std::uint64_t kib = bytes >> 10;
    if (kib > std::uint64_t{1} << 30) return {40, kTeraWord, 'T'};
    if (kib > std::uint64_t{1} << 20) return {30, kGigaWord, 'G'};
    if (kib > std::uint64_t{1} << 10) return {20, kMegaWord, 'M'};
    return {10, kKiloWord, 'K'};
}

// The formatters are made with the first number: at the start they would delay the window by two
// milliseconds, for texts that it may never show. False when they cannot be made.
bool makeSureOfFormatters()
{
    return baseGuardMemory([] {
        if (gThousandFormatter == nullptr || gOneFractionDigitFormatter == nullptr) {
            tovStringInitString();
        }
        return gThousandFormatter != nullptr && gOneFractionDigitFormatter != nullptr;
    });
}
}  // namespace

void tovStringInitString()
{
    const std::string locale = numberLocale();
    releaseNumberFormat(gThousandFormatter);
    releaseNumberFormat(gOneFractionDigitFormatter);
    gThousandFormatter = createNumberFormat(locale);
    gOneFractionDigitFormatter = createNumberFormat(locale, 1);
}

TovStringRef TovStringGetFromTable(std::int16_t table, std::int16_t index)
{
    return iuGetIndCFString(table, index);
}

TovStringRef TovStringMakeSizeString(std::uint64_t bytes)
{
    if (!makeSureOfFormatters()) return nullptr;
    const SizeUnit unit = unitFor(bytes);
    const double value = std::ldexp(static_cast<double>(bytes), -unit.shift);
    const StringHolder number(createNumberText(gOneFractionDigitFormatter, value));
    const StringHolder word(TovStringGetFromTable(kSizeWords, unit.word));
    if (!number || !word) return nullptr;
    return tovFormat(u"%@%@", {number.get(), word.get()});
}

TovStringRef makeSmallSizeString(std::uint64_t bytes)
{
    const SizeUnit unit = unitFor(bytes);
    const bool isLessThanOne = bytes > 0 && bytes < 1024;
    const std::uint64_t count = isLessThanOne ? 1 : bytes >> unit.shift;
    return tovFormat(u"%qu %c", {count, unit.letter});
}

TovStringRef TovMakeDoubleSizeString(std::uint64_t bytes)
{
    const StringHolder size(TovStringMakeSizeString(bytes));
    const StringHolder count(TovMakeNumberStringWithSeparators(static_cast<std::int64_t>(bytes)));
    const StringHolder word(TovStringGetFromTable(kSizeWords, kBytesWord));
    if (!size || !count || !word) return nullptr;
    return tovFormat(u"%@ (%@ %@)", {size.get(), count.get(), word.get()});
}

TovStringRef TovMakeNumberStringWithSeparators(std::int64_t value)
{
    if (!makeSureOfFormatters()) return nullptr;
    return createNumberText(gThousandFormatter, value);
}

TovStringRef TovMakeNumberString(std::uint64_t value)
{
    return tovFormat(u"%qu", {value});
}

TovStringRef TovStringMakePaddedNumberString(std::int32_t value)
{
    return tovFormat(value >= 0 && value <= 9 ? u"0%li" : u"%li", {value});
}

TovStringRef TovStringMakeDurationString(std::uint32_t seconds)
{
    // A full hour still counts as minutes: 60:00.
    if (seconds <= kSecondsPerHour) return tovFormat(u"%u:%02u", {seconds / 60, seconds % 60});
    return tovFormat(u"%u:%02u:%02u", {seconds / kSecondsPerHour, seconds / 60 % 60, seconds % 60});
}

TovStringRef TovStringMakeDateTimeString(std::uint32_t macTime, std::uint8_t withTime,
                                         std::uint8_t withYear)
{
    return baseGuardMemory([&]() -> TovStringRef {
        DateStyle style = withTime != 0 ? DateStyle::dateAndTime : DateStyle::date;
        if (withYear == 0) style = DateStyle::dayAndMonth;
        return createDateText(dateLocale(), style, std::int64_t{macTime} - kMacSecondsOf1970);
    });
}

TovStringRef TovStringMakeOSTypeString(std::uint32_t code)
{
    char bytes[sizeof code];
    std::memcpy(bytes, &code, sizeof code);
    return createStringFromMacRoman({bytes, sizeof bytes});
}
