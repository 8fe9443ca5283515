#include "lib/text/zone_time.h"

#include "tests/support/environment.h"
#include "tests/support/texts.h"

#include <gtest/gtest.h>

using namespace pinorama;

namespace {
constexpr std::int64_t kJanuary = 1767268800;  // 2026-01-01 12:00 UTC
constexpr std::int64_t kJuly = 1784030400;     // 2026-07-14 12:00 UTC

std::string nameIn(const char* language, const char* zone, std::int64_t instant)
{
    const test::ScopedVariable list("LANGUAGE", nullptr);
    const test::ScopedVariable locale("LC_ALL", language);
    return test::takeUTF8(createZoneTimeName(zone, instant)).value_or("none");
}
}  // namespace

TEST(zoneOffsetAt, knowsDaylightSavingAsOfTheDate)
{
    EXPECT_EQ(zoneOffsetAt("Europe/Rome", kJanuary), 3600);
    EXPECT_EQ(zoneOffsetAt("Europe/Rome", kJuly), 7200);
    EXPECT_EQ(zoneOffsetAt("America/Argentina/Ushuaia", kJuly), -3 * 3600);
    EXPECT_EQ(zoneOffsetAt("Asia/Kathmandu", kJuly), 5 * 3600 + 45 * 60);
    // Samoa was on the other side of the date line until 2011.
    EXPECT_EQ(zoneOffsetAt("Pacific/Apia", 1262347200), -11 * 3600);
    EXPECT_EQ(zoneOffsetAt("Pacific/Apia", kJuly), 13 * 3600);
}

TEST(zoneOffsetAt, hasNothingForWhatIsNoZone)
{
    for (const char* zone : {"", "Europe/Nowhere", "not a zone"}) {
        EXPECT_FALSE(zoneOffsetAt(zone, kJuly)) << zone;
        EXPECT_FALSE(instantInZone(zone, kJuly)) << zone;
        EXPECT_EQ(nameIn("en_US", zone, kJuly), "none") << zone;
    }
}

TEST(instantInZone, undoesTheOffsetAlsoNearAChange)
{
    // Clocks went forward on 2026-03-29 at 01:00 UTC and back on 2026-10-25 at 01:00 UTC.
    for (const std::int64_t change : {1774746000, 1792890000}) {
        for (const std::int64_t hours : {-30, -14, -3, -2, 2, 3, 14, 30}) {
            const std::int64_t instant = change + hours * 3600;
            const std::int64_t clockTime = instant + *zoneOffsetAt("Europe/Rome", instant);
            EXPECT_EQ(instantInZone("Europe/Rome", clockTime), instant) << hours;
        }
    }
}

TEST(createZoneTimeName, isInTheUsersLanguageAndOfTheDate)
{
    EXPECT_EQ(nameIn("en_US", "Europe/Rome", kJanuary), "Central European Standard Time");
    EXPECT_EQ(nameIn("en_US", "Europe/Rome", kJuly), "Central European Summer Time");
    EXPECT_EQ(nameIn("de_DE", "Europe/Rome", kJuly), "Mitteleurop\u00e4ische Sommerzeit");
    EXPECT_EQ(nameIn("en_US", "America/Argentina/Ushuaia", kJuly), "Argentina Standard Time");
}
