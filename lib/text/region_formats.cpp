#include "lib/text/region_formats.h"

#include "lib/text/region_table.h"

#include <algorithm>

using namespace pinorama;

namespace {
std::string_view nameOf(const pinorama::RegionRow& row)
{
    const std::string_view padded(row.locale, sizeof row.locale);
    return padded.substr(0, padded.find('\0'));
}

// The list that begins there, up to the two zeros at its end, the second one left out.
std::u16string_view listAt(std::uint16_t place)
{
    const char16_t* const first = kRegionTexts + place;
    const char16_t* end = first;
    while (*end != u'\0') {
        while (*end != u'\0') end++;
        end++;
    }
    return {first, end};
}
}  // namespace

std::optional<pinorama::RegionFormats> pinorama::regionFormats(std::string_view locale)
{
    const RegionRow* const end = kRegionRows + kRegionRowCount;
    const RegionRow* const row =
        std::lower_bound(kRegionRows, end, locale,
                         [](const RegionRow& a, std::string_view b) { return nameOf(a) < b; });
    if (row == end || nameOf(*row) != locale) return std::nullopt;
    std::u16string_view pattern = listAt(row->dateAndTime);
    pattern.remove_suffix(1);
    return RegionFormats{.dateAndTime = pattern,
                         .months = listAt(row->months),
                         .dayPeriods = listAt(row->dayPeriods),
                         .numbers = listAt(row->numbers)};
}
