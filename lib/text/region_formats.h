// How the regions of the world write a date with its time, and a number, put together without ICU:
// loading that and making its formatters takes longer than anything else that a short program does.
// What ICU knows about each region is written down when the program is built
// (make_region_table.cpp), of those whose texts come out the very same. Units are those of UTF-16.

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace pinorama {

// What a region's texts are put together from.
struct RegionFormats {
    // A medium date with a short time, in the letters of Unicode's date patterns (UTS #35): y M MM
    // MMM d dd h hh H HH m mm a B and quoted text.
    std::u16string_view dateAndTime;
    // Twelve short names, each followed by 0; empty without MMM in the pattern.
    std::u16string_view months;
    // What a or B stands for in each of the 24 hours, each followed by 0; empty without them.
    std::u16string_view dayPeriods;
    // Each followed by 0: the digit 0, whose code point the other nine follow; what stands between
    // whole part and fraction; what stands between groups of digits; and one unit, how many digits
    // are in a group beyond the thousands.
    std::u16string_view numbers;
};

// The formats of a locale that dateLocale or numberLocale gave. Nothing for one that only ICU
// knows, or that has another calendar. The texts live as long as the program.
std::optional<RegionFormats> regionFormats(std::string_view locale);

// Writes the calendar fields of `seconds` since 1970, read with no time zone, into `dest`. Returns
// the units written; 0 for a moment before 1904 or after 2040, and when they do not fit.
std::size_t writeDateAndTime(const RegionFormats& formats, std::int64_t seconds,
                             std::span<char16_t> dest);

// Writes a number with exactly `fractionDigits` digits (0 to 9) behind the decimal separator; the
// shortest decimal that means the number is rounded, ties to the even digit. Returns the units
// written; 0 for a number that is negative, not finite or above 10^15, and when they do not fit.
std::size_t writeNumber(const RegionFormats& formats, double value, int fractionDigits,
                        std::span<char16_t> dest);

}  // namespace pinorama
