#include "lib/conv/time_conversions.h"

#include "base/time_zone.h"
#include "lib/conv/mac_time.h"
#include "lib/text/date_parser.h"

using namespace pinorama;

pinorama::DateParser* gGermanDateFormatter = nullptr;
pinorama::DateParser* gADCDateFormatter = nullptr;
pinorama::DateParser* gIVIEWDateFormatter = nullptr;
pinorama::DateParser* gIVIEWDateFormatter2 = nullptr;

namespace {
constexpr std::uint32_t kMacSecondsOf1960 = 1767225600;
constexpr std::uint32_t kUnixSecondsSince1960 = 315619200;  // from 1960 to 1970
constexpr std::uint32_t kUnixTimeOf1904 = 0x83da4f80;       // a negative time written as unsigned
constexpr std::uint64_t kWindowsTicksOf1960 = 113288544000000000;
constexpr std::uint64_t kWindowsTicksPerSecond = 10000000;
constexpr std::uint32_t kSecondsPerMinute = 60;
constexpr std::int64_t kDaysFrom1904To1970 = 24107;

VardenTime minutesSince1960(std::uint32_t macTime)
{
    return (macTime - kMacSecondsOf1960) / kSecondsPerMinute;
}

// Days from 1970-01-01 to the first of March of a year, which is where the day count of a leap year
// starts to shift.
std::int64_t daysToMarch(std::int64_t year)
{
    const std::int64_t era = (year >= 0 ? year : year - 399) / 400;
    const std::int64_t yearOfEra = year - era * 400;
    return era * 146097 + yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 - 719468;
}

// Pure calendar arithmetic, no zone: month 0 is December of the year before, day 0 the last day of
// the month before, and so on.
std::uint32_t macSecondsOfDate(std::int64_t year, std::int64_t month, std::int64_t day)
{
    const std::int64_t monthsFromMarch = year * 12 + month - 3;
    const std::int64_t marchYear =
        (monthsFromMarch >= 0 ? monthsFromMarch : monthsFromMarch - 11) / 12;
    const std::int64_t month0 = monthsFromMarch - marchYear * 12;  // 0 is March
    const std::int64_t dayOfYear = (153 * month0 + 2) / 5 + day - 1;
    const std::int64_t days = daysToMarch(marchYear) + dayOfYear + kDaysFrom1904To1970;
    return static_cast<std::uint32_t>(days * 86400);
}

void createOnce(pinorama::DateParser** parser, const char16_t* pattern)
{
    if (*parser == nullptr) *parser = createDateParser(pattern);
}
}  // namespace

void convInit()
{
    createOnce(&gGermanDateFormatter, u"dd.MM.yy HH:mm");
    createOnce(&gADCDateFormatter, u"MM/dd/yyyy h:m:s a");
    createOnce(&gIVIEWDateFormatter, u"yyyy:MM:d HH:mm:ss");
    createOnce(&gIVIEWDateFormatter2, u"yyyy:MM:d");
}

void convMacTime2VardenTime(std::uint32_t macTime, VardenTime* out)
{
    *out = macTime == 0 ? 0 : minutesSince1960(macTime);
}

void convMacGMTTime2VardenTime(const UTCDateTime* time, VardenTime* out)
{
    *out = 0;
    if (time == nullptr) return;
    const std::int64_t seconds =
        (static_cast<std::int64_t>(time->highSeconds) << 32) | time->lowSeconds;
    if (seconds == 0) return;

    const std::int64_t local =
        seconds + utcOffsetAt(seconds - static_cast<std::int64_t>(kMacSecondsOf1970));
    if (local == 0) return;
    const std::uint64_t since1960 = static_cast<std::uint64_t>(local) - kMacSecondsOf1960;
    *out = static_cast<VardenTime>(since1960 / kSecondsPerMinute);
}

void convCFDateRefToVardenTime(TovDateRef date, VardenTime* out)
{
    *out = date == nullptr ? 0 : minutesSince1960(macSecondsInUTC(TovDateGetAbsoluteTime(date)));
}

void convWinTime2VardenTime(std::uint32_t upperHalf, VardenTime* out)
{
    const std::uint64_t ticks = (static_cast<std::uint64_t>(upperHalf) << 32) - kWindowsTicksOf1960;
    const auto seconds = static_cast<std::uint32_t>(ticks / kWindowsTicksPerSecond);
    *out = upperHalf == 0 ? 0 : seconds / kSecondsPerMinute;
}

void convDOZZTime2VardenTime(std::uint16_t dosTime, std::uint16_t dosDate, VardenTime* out)
{
    const std::uint32_t hours = dosTime >> 11;
    const std::uint32_t minutes = (dosTime >> 5) & 0x3f;
    const std::uint32_t midnight =
        macSecondsOfDate(1980 + (dosDate >> 9), (dosDate >> 5) & 0x0f, dosDate & 0x1f);
    *out = minutesSince1960(midnight + hours * 3600 + minutes * kSecondsPerMinute);
}

void convUnixTime2VardenTime(std::uint32_t unixTime, VardenTime* out)
{
    const bool isNoDate = unixTime == 0 || unixTime == kUnixTimeOf1904;
    *out = isNoDate ? 0 : (unixTime + kUnixSecondsSince1960) / kSecondsPerMinute;
}

void convVardenTime2MacTime(VardenTime time, std::uint32_t* out)
{
    *out = time == 0 ? 0 : time * kSecondsPerMinute + kMacSecondsOf1960;
}

void convRemoveSecondsFromMacDate(std::uint32_t* macTime)
{
    *macTime -= *macTime % kSecondsPerMinute;
}

VardenTime makeVardenTime(std::uint16_t year, std::uint16_t month, std::uint16_t day)
{
    const std::uint32_t macTime = macSecondsOfDate(year, month, day);
    return macTime == 0 ? 0 : minutesSince1960(macTime);
}
