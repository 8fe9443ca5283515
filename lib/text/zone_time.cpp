#include "lib/text/zone_time.h"

#include "base/memory_guard.h"
#include "lib/text/locale.h"

#include <unicode/ucal.h>
#include <unicode/udat.h>

#include <algorithm>
#include <iterator>
#include <memory>

using namespace pinorama;

namespace {
constexpr double kMillisecondsPerSecond = 1000.0;

struct CalendarCloser {
    void operator()(UCalendar* calendar) const { ucal_close(calendar); }
};
struct FormatCloser {
    void operator()(UDateFormat* format) const { udat_close(format); }
};
// Both types are void.
using CalendarHandle = std::unique_ptr<UCalendar, CalendarCloser>;
using FormatHandle = std::unique_ptr<UDateFormat, FormatCloser>;

std::u16string unitsOfZone(const std::string& zone)
{
    return std::u16string(zone.begin(), zone.end());
}

// ICU takes a zone that it does not know for that of Greenwich.
bool isZone(const std::u16string& zone)
{
    char16_t canonical[128];
    UErrorCode status = U_ZERO_ERROR;
    (void)ucal_getCanonicalTimeZoneID(zone.data(), static_cast<std::int32_t>(zone.size()),
                                      canonical, std::size(canonical), nullptr, &status);
    return !zone.empty() && U_SUCCESS(status);
}
}  // namespace

std::optional<std::int64_t> pinorama::zoneOffsetAt(const std::string& zone, std::int64_t instant)
{
    const std::u16string name = unitsOfZone(zone);
    if (!isZone(name)) return std::nullopt;
    UErrorCode status = U_ZERO_ERROR;
    const CalendarHandle calendar(ucal_open(name.data(), static_cast<std::int32_t>(name.size()),
                                            "en", UCAL_GREGORIAN, &status));
    ucal_setMillis(calendar.get(), static_cast<double>(instant) * kMillisecondsPerSecond, &status);
    const std::int64_t milliseconds =
        std::int64_t{ucal_get(calendar.get(), UCAL_ZONE_OFFSET, &status)} +
        ucal_get(calendar.get(), UCAL_DST_OFFSET, &status);
    if (U_FAILURE(status)) return std::nullopt;
    return milliseconds / 1000;
}

std::optional<std::int64_t> pinorama::instantInZone(const std::string& zone, std::int64_t clockTime)
{
    const auto near = zoneOffsetAt(zone, clockTime);
    if (!near) return std::nullopt;
    // The offset near by may be that of the other side of a change.
    const auto offset = zoneOffsetAt(zone, clockTime - *near);
    if (!offset) return std::nullopt;
    return clockTime - *offset;
}

TovStringRef pinorama::createZoneTimeName(const std::string& zone, std::int64_t instant)
{
    return baseGuardMemory([&]() -> TovStringRef {
        const std::u16string name = unitsOfZone(zone);
        if (!isZone(name)) return nullptr;
        UErrorCode status = U_ZERO_ERROR;
        const FormatHandle format(
            udat_open(UDAT_PATTERN, UDAT_PATTERN, textLanguages().front().c_str(), name.data(),
                      static_cast<std::int32_t>(name.size()), u"zzzz", -1, &status));
        if (U_FAILURE(status)) return nullptr;
        char16_t text[128];
        const std::int32_t length =
            udat_format(format.get(), static_cast<double>(instant) * kMillisecondsPerSecond, text,
                        std::size(text), nullptr, &status);
        if (U_FAILURE(status) || length > static_cast<std::int32_t>(std::size(text)))
            return nullptr;
        return createString({text, static_cast<std::size_t>(length)});
    });
}
