#include "cli/iso_time.h"

#include <gtest/gtest.h>

#include <limits>

using namespace pinorama;

TEST(isoTime, writesWhatIsKnownOfTheOffset)
{
    constexpr std::int64_t first = -62135596800;  // 0001-01-01 00:00:00
    constexpr std::int64_t last = 253402300799;   // 9999-12-31 23:59:59
    const struct {
        const char* name;
        std::int64_t seconds;
        std::optional<std::int64_t> offset;
        const char* expected;
    } rows[] = {
        {"UTC", 1229428800, 0, "2008-12-16T12:00:00Z"},
        {"no offset", 1229428800, std::nullopt, "2008-12-16T12:00:00"},
        {"east", 1229428800, 345, "2008-12-16T12:00:00+05:45"},
        {"west", 1229428800, -30, "2008-12-16T12:00:00-00:30"},
        {"before 1970", -1, 0, "1969-12-31T23:59:59Z"},
        {"leap day", 951782400, 0, "2000-02-29T00:00:00Z"},
        {"first", first, 0, "0001-01-01T00:00:00Z"},
        {"last", last, 0, "9999-12-31T23:59:59Z"},
        {"too early", first - 1, 0, ""},
        {"too late", last + 1, 0, ""},
        {"least", std::numeric_limits<std::int64_t>::min(), 0, ""},
        {"greatest", std::numeric_limits<std::int64_t>::max(), 0, ""},
        {"a day ahead", 0, 1440, ""},
        {"a day behind", 0, -1440, ""},
        {"an absurd offset", 0, std::numeric_limits<std::int64_t>::min(), ""},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(isoTime(row.seconds, row.offset), row.expected) << row.name;
    }
}
