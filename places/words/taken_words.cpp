#include "places/words/taken_words.h"

#include "base/memory_guard.h"
#include "lib/text/date_format.h"
#include "lib/text/locale.h"
#include "lib/text/zone_time.h"
#include "places/words/table_text.h"

#include <cstdlib>

using namespace pinorama;

namespace {
constexpr std::int64_t kSecondsPerMinute = 60;

// Which of the three clocks, and whose time zone the line is in.
enum class Kind {
    satellitesThere,    // in the time of the place
    satellitesInUTC,    //
    cameraThere,        // in the camera's time, which is that of the place if it is known
    cameraElsewhere,    // the camera was set to another zone than that of the place
    cameraAssumed,      // a clock without an offset, taken to be set to the place
    cameraWithoutZone,  //
};

struct Reading {
    Kind kind;
    std::int64_t clockTime;  // as it is shown
    std::int64_t instant;    // of it; meaningless without a zone
};

Reading readingOf(const TakenTime& taken, const std::string& zone)
{
    const auto instant = instantOf(taken);
    if (!instant) {
        const auto assumed = instantInZone(zone, taken.clockTime);
        if (!assumed) return {Kind::cameraWithoutZone, taken.clockTime, 0};
        return {Kind::cameraAssumed, taken.clockTime, *assumed};
    }
    const auto offset = zoneOffsetAt(zone, *instant);
    if (taken.isFromSatellites) {
        if (!offset) return {Kind::satellitesInUTC, taken.clockTime, *instant};
        return {Kind::satellitesThere, *instant + *offset, *instant};
    }
    if (!offset || *offset == *taken.offset * kSecondsPerMinute)
        return {Kind::cameraThere, taken.clockTime, *instant};
    return {Kind::cameraElsewhere, *instant + *offset, *instant};
}

std::u16string dateText(std::int64_t clockTime)
{
    return take(createDateText(dateLocale(), DateStyle::dateAndTime, clockTime));
}

// "UTC+5:45"
std::u16string offsetText(std::int64_t minutes)
{
    std::u16string text = u"UTC";
    if (minutes == 0) return text;
    const std::int64_t size = std::abs(minutes);
    text += minutes < 0 ? u"\u2212" : u"+";
    std::string digits = std::to_string(size / 60);
    if (size % 60 != 0) digits += (size % 60 < 10 ? ":0" : ":") + std::to_string(size % 60);
    return text + std::u16string(digits.begin(), digits.end());
}
}  // namespace

std::optional<std::int64_t> pinorama::instantOf(const TakenTime& taken)
{
    if (!taken.offset) return std::nullopt;
    return taken.clockTime - *taken.offset * kSecondsPerMinute;
}

TovStringRef pinorama::createTakenText(const TakenTime& taken, const std::string& zone)
{
    return baseGuardMemory([&]() -> TovStringRef {
        const Reading reading = readingOf(taken, zone);
        std::u16string name;
        switch (reading.kind) {
        case Kind::cameraWithoutZone: return createString(dateText(reading.clockTime));
        case Kind::satellitesInUTC: name = offsetText(0); break;
        case Kind::cameraThere: name = offsetText(*taken.offset); break;
        case Kind::satellitesThere:
        case Kind::cameraElsewhere:
        case Kind::cameraAssumed: name = take(createZoneTimeName(zone, reading.instant)); break;
        }
        return fill("takenIn", {{u"time", dateText(reading.clockTime)}, {u"zone", name}});
    });
}

TovStringRef pinorama::createTakenSource(const TakenTime& taken, const std::string& zone)
{
    return baseGuardMemory([&]() -> TovStringRef {
        switch (readingOf(taken, zone).kind) {
        case Kind::satellitesThere: return createString(tableText("takenBySatellites"));
        case Kind::satellitesInUTC: return createString(tableText("takenBySatellitesInUTC"));
        case Kind::cameraAssumed: return createString(tableText("takenByCameraAssumed"));
        case Kind::cameraWithoutZone: return createString(tableText("takenByCameraWithoutZone"));
        case Kind::cameraThere:
            return fill("takenByCamera", {{u"zone", offsetText(*taken.offset)}});
        case Kind::cameraElsewhere: break;
        }
        return fill("takenByCameraElsewhere",
                    {{u"zone", offsetText(*taken.offset)}, {u"time", dateText(taken.clockTime)}});
    });
}
