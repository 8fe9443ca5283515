// The formats of all regions as the program carries them: made by make_region_table.cpp, looked up
// by region_formats.cpp. Without pointers, so that nothing has to be done about it when a program
// starts.

#pragma once

#include <cstddef>
#include <cstdint>

namespace pinorama {

constexpr std::size_t kLongestLocaleName = 11;

// Places in kRegionTexts, each the beginning of a list (region_formats.h) that ends with an
// additional 0.
struct RegionRow {
    char locale[kLongestLocaleName + 1];  // sorted; the rest is 0
    std::uint16_t dateAndTime;
    std::uint16_t months;
    std::uint16_t dayPeriods;
    std::uint16_t numbers;
};

extern const RegionRow kRegionRows[];
extern const std::size_t kRegionRowCount;
extern const char16_t kRegionTexts[];

}  // namespace pinorama
