// The library's own date value and its conversions from the time formats that files and catalogues
// use, and the four shared readers of dates in foreign notations.
//
// Every conversion writes its result through its last argument. All arithmetic is unsigned and
// wraps at 32 bits unless a conversion says otherwise; divisions truncate, so seconds are dropped.
// 0 means that there is no date and is what a missing or zero input gives.

#pragma once

#include <cstdint>

#include "lib/objects/values.h"

namespace pinorama {
class DateParser;
}

// Whole minutes since 1960-01-01 00:00 on the clock of the source; 0 is no date. Dates before 1960
// cannot be represented and wrap around.
using VardenTime = std::uint32_t;

// Seconds since 1904-01-01 00:00 UTC, 48 bits in two parts, and a fraction of 1/65536 second.
struct UTCDateTime {
    std::uint16_t highSeconds;
    std::uint32_t lowSeconds;
    std::uint16_t fraction;
};

// The readers that convInit makes; null before. They are shared and never released.
extern pinorama::DateParser* gGermanDateFormatter;  // dd.MM.yy HH:mm
extern pinorama::DateParser* gADCDateFormatter;     // MM/dd/yyyy h:m:s a
extern pinorama::DateParser* gIVIEWDateFormatter;   // yyyy:MM:d HH:mm:ss
extern pinorama::DateParser* gIVIEWDateFormatter2;  // yyyy:MM:d

// Makes the four readers. Called once at start-up; the library does not call it by itself. A second
// call changes nothing.
void convInit();

// A Mac time: seconds since 1904-01-01 00:00 on the local wall clock. Mac times before 1960 wrap: 1
// gives 42129028.
void convMacTime2VardenTime(std::uint32_t macTime, VardenTime* out);

// A date-time in UTC, moved to the local wall clock with the zone offset in force at that moment.
// The fraction is ignored: a time of nothing but a fraction is no date, and so is one whose
// local seconds come out as 0. Divides in 64 bits and keeps the low 32, so times before 1960 give
// other numbers than convMacTime2VardenTime. A null time is no date.
void convMacGMTTime2VardenTime(const UTCDateTime* time, VardenTime* out);

// A date object, by pure offset: the result is on the clock of UTC whatever the zone. Fractions of
// a second are floored. No date gives a special value: the start of 1904 wraps like every date
// before 1960. Only a null date gives 0.
void convCFDateRefToVardenTime(TovDateRef date, VardenTime* out);

// The upper half of a Windows file time (units of 100 ns since 1601). Its step is about 429.5
// seconds, by which the result may be early. Wraps at 64 bits; the low 32 bits of the seconds
// count.
void convWinTime2VardenTime(std::uint32_t upperHalf, VardenTime* out);

// The two words of a DOS directory entry, the time first. Years run from 1980; the two-second count
// is not used. A month or day of 0, or beyond its range, is counted on from where it points: month
// 0 is the December before, day 0 the last day before. No input is special.
void convDOZZTime2VardenTime(std::uint16_t dosTime, std::uint16_t dosDate, VardenTime* out);

// Seconds since 1970-01-01, no change of zone. 2212122496, the start of 1904 as an unsigned Unix
// time, is no date like 0.
void convUnixTime2VardenTime(std::uint32_t unixTime, VardenTime* out);

// Back to a Mac time.
void convVardenTime2MacTime(VardenTime time, std::uint32_t* out);

// Rounds a Mac time down to a whole minute in place.
void convRemoveSecondsFromMacDate(std::uint32_t* macTime);

// Returns midnight of a date of the Gregorian calendar, which is extended in both directions; month
// and day out of range are counted on as for DOS dates. The seconds are kept to 32 bits, so years
// from 2040 wrap; 1904-01-01 is no date.
VardenTime makeVardenTime(std::uint16_t year, std::uint16_t month, std::uint16_t day);
