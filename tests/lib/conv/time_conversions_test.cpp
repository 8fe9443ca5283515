#include "lib/conv/time_conversions.h"

#include "lib/objects/object_holder.h"
#include "lib/text/date_parser.h"
#include "tests/support/environment.h"

#include <gtest/gtest.h>

#include <ctime>
#include <limits>

using namespace pinorama;

namespace {
using test::ScopedVariable;

constexpr std::uint32_t kMacTimeOf2000 = 3029529600;
constexpr VardenTime kVardenTimeOf2000 = 21038400;
constexpr double kAbsoluteTimeOf2000 = -31622400.0;  // seconds since 2001

VardenTime fromMac(std::uint32_t macTime)
{
    VardenTime result = 99;
    convMacTime2VardenTime(macTime, &result);
    return result;
}

VardenTime fromUTC(std::uint16_t high, std::uint32_t low, std::uint16_t fraction = 0)
{
    const UTCDateTime time{high, low, fraction};
    VardenTime result = 99;
    convMacGMTTime2VardenTime(&time, &result);
    return result;
}

VardenTime fromDate(double absoluteTime)
{
    const ObjectHolder<TovDateRef> date(TovDateCreate(absoluteTime));
    VardenTime result = 99;
    convCFDateRefToVardenTime(date.get(), &result);
    return result;
}

VardenTime fromWindows(std::uint32_t upperHalf)
{
    VardenTime result = 99;
    convWinTime2VardenTime(upperHalf, &result);
    return result;
}

VardenTime fromUnix(std::uint32_t unixTime)
{
    VardenTime result = 99;
    convUnixTime2VardenTime(unixTime, &result);
    return result;
}

std::uint16_t dosDate(int year, int month, int day)
{
    return static_cast<std::uint16_t>(((year - 1980) << 9) | (month << 5) | day);
}

std::uint16_t dosTime(int hour, int minute, int twoSeconds = 0)
{
    return static_cast<std::uint16_t>((hour << 11) | (minute << 5) | twoSeconds);
}

VardenTime fromDOS(std::uint16_t time, std::uint16_t date)
{
    VardenTime result = 99;
    convDOZZTime2VardenTime(time, date, &result);
    return result;
}

// What the calendar of the C library says.
std::uint32_t macTimeOf(int year, int month, int day, int hour = 0, int minute = 0)
{
    std::tm fields{};
    fields.tm_year = year - 1900;
    fields.tm_mon = month - 1;
    fields.tm_mday = day;
    fields.tm_hour = hour;
    fields.tm_min = minute;
    return static_cast<std::uint32_t>(timegm(&fields) + 2082844800);
}

VardenTime expectedMinutes(int year, int month, int day, int hour = 0, int minute = 0)
{
    return (macTimeOf(year, month, day, hour, minute) - 1767225600u) / 60;
}
}  // namespace

TEST(convMacTime2VardenTime, countsMinutesFrom1960)
{
    const struct {
        const char* name;
        std::uint32_t macTime;
        VardenTime expected;
    } rows[] = {
        {"no date", 0, 0},
        {"1960 itself", 1767225600, 0},
        {"the last second of its first minute", 1767225659, 0},
        {"one minute later", 1767225660, 1},
        {"2000", kMacTimeOf2000, kVardenTimeOf2000},
        {"seconds are dropped", kMacTimeOf2000 + 59, kVardenTimeOf2000},
        {"before 1960 wraps", 1, 42129028},
        {"one second before 1960", 1767225599, 71582788},
        {"the last Mac time", std::numeric_limits<std::uint32_t>::max(), 42129028},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(fromMac(row.macTime), row.expected);
    }
}

TEST(convMacTime2VardenTime, ignoresTheZone)
{
    const ScopedVariable zone("TZ", "America/New_York");
    EXPECT_EQ(fromMac(kMacTimeOf2000), kVardenTimeOf2000);
}

TEST(convMacGMTTime2VardenTime, convertsToTheLocalClockOfThatMoment)
{
    const struct {
        const char* zone;
        std::uint32_t utc;
        VardenTime expected;
    } rows[] = {
        {"UTC", kMacTimeOf2000, kVardenTimeOf2000},
        {"Europe/Berlin", kMacTimeOf2000, kVardenTimeOf2000 + 60},
        {"Europe/Berlin", kMacTimeOf2000 + 182 * 86400, kVardenTimeOf2000 + 182 * 1440 + 120},
        {"America/New_York", kMacTimeOf2000, kVardenTimeOf2000 - 300},
        {"Asia/Kolkata", kMacTimeOf2000, kVardenTimeOf2000 + 330},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.zone);
        const ScopedVariable zone("TZ", row.zone);
        EXPECT_EQ(fromUTC(0, row.utc), row.expected);
    }
}

TEST(convMacGMTTime2VardenTime, isNoDateWhenTheSecondsAreZero)
{
    EXPECT_EQ(fromUTC(0, 0), 0u);
    EXPECT_EQ(fromUTC(0, 0, 65535), 0u);
    VardenTime result = 99;
    convMacGMTTime2VardenTime(nullptr, &result);
    EXPECT_EQ(result, 0u);
}

TEST(convMacGMTTime2VardenTime, isNoDateWhenTheLocalSecondsAreZero)
{
    const ScopedVariable zone("TZ", "XXX1");  // always one hour behind UTC
    EXPECT_EQ(fromUTC(0, 3600), 0u);
    EXPECT_NE(fromUTC(0, 3601), 0u);
}

TEST(convMacGMTTime2VardenTime, dividesIn64BitsUnlikeMacTimes)
{
    // (1 - 1767225600) modulo 2^64, divided by 60, low 32 bits.
    EXPECT_EQ(fromUTC(0, 1), 1115870852u);
    EXPECT_NE(fromUTC(0, 1), fromMac(1));
}

TEST(convMacGMTTime2VardenTime, countsTheHighSeconds)
{
    // 2^32 seconds after 1904 are 2040-02-06 06:28:16.
    EXPECT_EQ(fromUTC(1, 0), 42129028u);
    // Beyond what the calendar of the C library needs, and the largest there is.
    EXPECT_EQ(fromUTC(0xffff, 0xffffffff),
              static_cast<std::uint32_t>((0xffffffffffff - 1767225600ULL) / 60));
}

TEST(convCFDateRefToVardenTime, isAPureOffsetOnTheClockOfUTC)
{
    for (const char* name : {"UTC", "Europe/Berlin", "America/New_York", "Asia/Kolkata"}) {
        SCOPED_TRACE(name);
        const ScopedVariable zone("TZ", name);
        EXPECT_EQ(fromDate(kAbsoluteTimeOf2000), kVardenTimeOf2000);
    }
}

TEST(convCFDateRefToVardenTime, floorsFractionsOfASecond)
{
    EXPECT_EQ(fromDate(kAbsoluteTimeOf2000 + 59.999), kVardenTimeOf2000);
    EXPECT_EQ(fromDate(kAbsoluteTimeOf2000 - 0.001), kVardenTimeOf2000 - 1);
    EXPECT_EQ(fromDate(-0.5), fromDate(-1.0));
}

TEST(convCFDateRefToVardenTime, hasNoSpecialDates)
{
    // The start of 1904 wraps like every date before 1960.
    EXPECT_EQ(fromDate(-3061152000.0), (0u - 1767225600u) / 60);
    EXPECT_EQ(fromDate(-3061152000.0 + 1767225600.0), 0u);
}

TEST(convCFDateRefToVardenTime, wrapsAt32Bits)
{
    EXPECT_EQ(fromDate(4294967296.0 - 31622400.0), kVardenTimeOf2000);
    EXPECT_EQ(fromDate(-4294967296.0 - 31622400.0), kVardenTimeOf2000);
    EXPECT_EQ(fromDate(1e300), fromDate(1e300));  // ends
    EXPECT_EQ(fromDate(std::numeric_limits<double>::infinity()), (0u - 1767225600u) / 60);
    EXPECT_EQ(fromDate(std::numeric_limits<double>::quiet_NaN()), (0u - 1767225600u) / 60);
}

TEST(convCFDateRefToVardenTime, isZeroForANullDate)
{
    VardenTime result = 99;
    convCFDateRefToVardenTime(nullptr, &result);
    EXPECT_EQ(result, 0u);
}

TEST(convWinTime2VardenTime, countsTheUpperHalfInSteps)
{
    const struct {
        const char* name;
        std::uint32_t upperHalf;
        VardenTime expected;
    } rows[] = {
        {"no date", 0, 0},
        {"2000, two minutes early", 29316075, 21038398},
        {"one step later", 29316076, 21038406},
        {"the last step before 1960 wraps", 26377044, 35557285},
        {"the first step after 1960", 26377045, 2},
        {"the first step of 1601 wraps", 1, 61491421},
        {"the last", 0xffffffff, 61491407},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(fromWindows(row.upperHalf), row.expected);
    }
}

TEST(convDOZZTime2VardenTime, readsTheTimeWordFirst)
{
    EXPECT_EQ(fromDOS(dosTime(0, 0), dosDate(2000, 1, 1)), kVardenTimeOf2000);
    EXPECT_EQ(fromDOS(dosTime(18, 30), dosDate(2008, 12, 24)),
              expectedMinutes(2008, 12, 24, 18, 30));
    EXPECT_EQ(fromDOS(dosTime(23, 59, 31), dosDate(2008, 2, 29)),
              expectedMinutes(2008, 2, 29, 23, 59));
}

TEST(convDOZZTime2VardenTime, dropsTheSeconds)
{
    EXPECT_EQ(fromDOS(dosTime(0, 0, 29), dosDate(2000, 1, 1)), kVardenTimeOf2000);
}

TEST(convDOZZTime2VardenTime, carriesOverMonthsAndDaysThatDoNotExist)
{
    const struct {
        const char* name;
        int year, month, day;
    } rows[] = {
        {"all zero", 1980, 0, 0},  {"month 0", 2001, 0, 15},   {"day 0", 2000, 3, 0},
        {"month 13", 2000, 13, 1}, {"month 15", 2000, 15, 31}, {"30 February", 2001, 2, 30},
        {"31 April", 2001, 4, 31},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(fromDOS(0, dosDate(row.year, row.month, row.day)),
                  expectedMinutes(row.year, row.month, row.day));
    }
    EXPECT_EQ(fromDOS(0, 0), expectedMinutes(1979, 11, 30));
}

TEST(convDOZZTime2VardenTime, carriesOverHoursAndMinutesThatDoNotExist)
{
    EXPECT_EQ(fromDOS(dosTime(31, 63), dosDate(2000, 1, 1)), kVardenTimeOf2000 + 31 * 60 + 63);
}

TEST(convDOZZTime2VardenTime, ignoresTheZone)
{
    // The clock of Berlin skips this hour.
    const ScopedVariable zone("TZ", "Europe/Berlin");
    EXPECT_EQ(fromDOS(dosTime(2, 30), dosDate(2008, 3, 30)), expectedMinutes(2008, 3, 30, 2, 30));
    EXPECT_EQ(fromDOS(0, dosDate(2000, 7, 1)), expectedMinutes(2000, 7, 1));
}

TEST(convDOZZTime2VardenTime, wrapsFrom2040)
{
    EXPECT_EQ(fromDOS(0, dosDate(2041, 1, 1)), expectedMinutes(2041, 1, 1));
    EXPECT_EQ(fromDOS(0xffff, 0xffff), expectedMinutes(2107, 15, 31, 31, 63));
}

TEST(convUnixTime2VardenTime, addsTenYears)
{
    const struct {
        const char* name;
        std::uint32_t unixTime;
        VardenTime expected;
    } rows[] = {
        {"no date", 0, 0},
        {"the start of 1904", 2212122496, 0},
        {"beside it", 2212122497, 42129028},
        {"one second after 1970", 1, 5260320},
        {"2000", 946684800, kVardenTimeOf2000},
        {"wraps to nothing", 3979348096, 0},
        {"wraps", 3979348096 + 60, 1},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(fromUnix(row.unixTime), row.expected);
    }
}

TEST(convUnixTime2VardenTime, ignoresTheZone)
{
    const ScopedVariable zone("TZ", "Asia/Kolkata");
    EXPECT_EQ(fromUnix(946684800), kVardenTimeOf2000);
}

TEST(convVardenTime2MacTime, undoesConvMacTime2VardenTime)
{
    const struct {
        const char* name;
        VardenTime time;
        std::uint32_t expected;
    } rows[] = {
        {"no date", 0, 0},
        {"one minute", 1, 1767225660},
        {"2000", kVardenTimeOf2000, kMacTimeOf2000},
        {"the last wraps", 4294967295, 1767225540},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        std::uint32_t result = 99;
        convVardenTime2MacTime(row.time, &result);
        EXPECT_EQ(result, row.expected);
    }
}

TEST(convRemoveSecondsFromMacDate, roundsDownToAWholeMinute)
{
    const struct {
        std::uint32_t before, after;
    } rows[] = {
        {0, 0}, {1, 0}, {59, 0}, {60, 60}, {3029529659, 3029529600}, {4294967295, 4294967280}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.before);
        std::uint32_t macTime = row.before;
        convRemoveSecondsFromMacDate(&macTime);
        EXPECT_EQ(macTime, row.after);
    }
}

TEST(makeVardenTime, isMidnightOfADate)
{
    EXPECT_EQ(makeVardenTime(2000, 1, 1), kVardenTimeOf2000);
    EXPECT_EQ(makeVardenTime(1960, 1, 1), 0u);  // by arithmetic
    EXPECT_EQ(makeVardenTime(1904, 1, 1), 0u);  // no date
    EXPECT_EQ(makeVardenTime(1904, 1, 2), (86400u - 1767225600u) / 60);
    EXPECT_EQ(makeVardenTime(1960, 1, 2), 1440u);
}

TEST(makeVardenTime, agreesWithTheCalendarOfTheCLibrary)
{
    for (int year = 1905; year < 2120; year++) {
        for (int month = 0; month <= 14; month++) {
            for (const int day : {0, 1, 28, 29, 30, 31, 400}) {
                ASSERT_EQ(makeVardenTime(static_cast<std::uint16_t>(year),
                                         static_cast<std::uint16_t>(month),
                                         static_cast<std::uint16_t>(day)),
                          fromMac(macTimeOf(year, month, day)))
                    << year << "-" << month << "-" << day;
            }
        }
    }
    EXPECT_EQ(makeVardenTime(0, 0, 0), fromMac(macTimeOf(0, 0, 0)));
    EXPECT_EQ(makeVardenTime(65535, 65535, 65535), fromMac(macTimeOf(65535, 65535, 65535)));
}

TEST(makeVardenTime, ignoresTheZone)
{
    const ScopedVariable zone("TZ", "America/New_York");
    EXPECT_EQ(makeVardenTime(2000, 7, 1), expectedMinutes(2000, 7, 1));
}

TEST(convInit, makesTheFourReadersOnce)
{
    convInit();
    DateParser* const readers[] = {gGermanDateFormatter, gADCDateFormatter, gIVIEWDateFormatter,
                                   gIVIEWDateFormatter2};
    for (const DateParser* reader : readers) EXPECT_NE(reader, nullptr);

    convInit();
    EXPECT_EQ(gGermanDateFormatter, readers[0]);
    EXPECT_EQ(gADCDateFormatter, readers[1]);
    EXPECT_EQ(gIVIEWDateFormatter, readers[2]);
    EXPECT_EQ(gIVIEWDateFormatter2, readers[3]);
}
