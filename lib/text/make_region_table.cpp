// Writes region_table.cpp: asks ICU how each region writes dates and numbers, and keeps the regions
// whose texts can be put together without it. A region of which a single sample comes out
// differently is left to ICU. Runs when the program is built.
//
// usage: make_region_table FILE

#include "lib/text/region_formats.h"
#include "lib/text/region_table.h"

#include <unicode/ucal.h>
#include <unicode/udat.h>
#include <unicode/uenum.h>
#include <unicode/uloc.h>
#include <unicode/unum.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>
#include <map>
#include <memory>
#include <string>
#include <vector>

using namespace pinorama;

namespace {
constexpr std::int64_t kMinute = 60;
constexpr std::int64_t kHour = 60 * kMinute;
constexpr std::int64_t kDay = 24 * kHour;
constexpr std::int32_t kRoom = 256;     // units
constexpr std::int32_t kThousands = 3;  // digits
constexpr int kFractionDigits[] = {0, 1, 2};
constexpr double kNumbers[] = {
    0,       0.04,   0.05,     0.15,   0.25,    0.35,     1,         9.95,        99.96,
    999.94,  999.95, 999.96,   1000,   1023.95, 1234.56,  9999.949,  9999.95,     10000,
    99999.9, 100000, 123456.7, 999999, 1000000, 12345678, 123456789, 1234567890.5};

template <auto Close>
struct Closer {
    template <typename Opened>
    void operator()(Opened* opened) const
    {
        Close(opened);
    }
};
using DateFormat = std::unique_ptr<UDateFormat, Closer<udat_close>>;
using NumberFormat = std::unique_ptr<UNumberFormat, Closer<unum_close>>;
using Names = std::unique_ptr<UEnumeration, Closer<uenum_close>>;

// Calls one of ICU's functions that print; empty when it fails.
template <typename Print>
std::u16string printed(Print print)
{
    char16_t units[kRoom];
    UErrorCode status = U_ZERO_ERROR;
    const std::int32_t count = print(units, &status);
    if (U_FAILURE(status) || count >= kRoom) return {};
    return {units, static_cast<std::size_t>(count)};
}

std::u16string dateText(const UDateFormat* format, std::int64_t seconds)
{
    return printed([=](char16_t* units, UErrorCode* status) {
        return udat_format(format, static_cast<double>(seconds) * 1000.0, units, kRoom, nullptr,
                           status);
    });
}

DateFormat openPattern(const std::string& locale, std::u16string_view pattern)
{
    UErrorCode status = U_ZERO_ERROR;
    return DateFormat(udat_open(UDAT_PATTERN, UDAT_PATTERN, locale.c_str(), u"GMT", -1,
                                pattern.data(), static_cast<std::int32_t>(pattern.size()),
                                &status));
}

// The formats of a region in texts of its own.
struct Region {
    std::u16string dateAndTime, months, dayPeriods, numbers;

    RegionFormats formats() const { return {dateAndTime, months, dayPeriods, numbers}; }
};

// What a letter of the pattern stands for at each of the moments, as a list.
std::u16string listOf(const std::string& locale, std::u16string_view letters,
                      const std::vector<std::int64_t>& moments)
{
    const DateFormat format = openPattern(locale, letters);
    std::u16string list;
    for (const std::int64_t moment : moments) list += dateText(format.get(), moment) + u'\0';
    return list;
}

void askForDates(const std::string& locale, const UDateFormat* format, Region* region)
{
    std::vector<std::int64_t> months(12);
    std::vector<std::int64_t> hours(24);
    for (std::size_t i = 0; i < months.size(); i++)
        months[i] = (15 + static_cast<int>(i) * 30) * kDay;
    for (std::size_t i = 0; i < hours.size(); i++) hours[i] = static_cast<int>(i) * kHour;
    region->dateAndTime = printed([=](char16_t* units, UErrorCode* status) {
        return udat_toPattern(format, false, units, kRoom, status);
    });
    const std::u16string& pattern = region->dateAndTime;
    if (pattern.find(u"MMM") != std::u16string::npos) {
        region->months = listOf(locale, u"MMM", months);
    }
    for (const std::u16string_view letter : {u"a", u"B"}) {
        if (pattern.find(letter) != std::u16string::npos) {
            region->dayPeriods = listOf(locale, letter, hours);
        }
    }
}

void askForNumbers(const UNumberFormat* format, Region* region)
{
    for (const UNumberFormatSymbol symbol :
         {UNUM_ZERO_DIGIT_SYMBOL, UNUM_DECIMAL_SEPARATOR_SYMBOL, UNUM_GROUPING_SEPARATOR_SYMBOL}) {
        region->numbers += printed([=](char16_t* units, UErrorCode* status) {
            return unum_getSymbol(format, symbol, units, kRoom, status);
        });
        region->numbers += u'\0';
    }
    const std::int32_t later = unum_getAttribute(format, UNUM_SECONDARY_GROUPING_SIZE);
    region->numbers += static_cast<char16_t>(later > 0 ? later : kThousands);
    region->numbers += u'\0';
}

std::vector<std::int64_t> sampleMoments()
{
    std::vector<std::int64_t> moments = {-2082844800, -1, 0, 2212122495};  // as Mac times go
    for (const int year : {0, 29, 30, 31, 54, 55, 56, 69}) {
        for (int day = 0; day < 366; day += 3) {
            const int sample = year * 366 + day;
            moments.push_back((year * 365 + day) * kDay + sample % 24 * kHour +
                              sample * 7 % 60 * kMinute);
        }
    }
    return moments;
}

bool datesComeOut(const pinorama::RegionFormats& formats, const UDateFormat* format)
{
    static const std::vector<std::int64_t> moments = sampleMoments();
    return std::all_of(moments.begin(), moments.end(), [&](std::int64_t moment) {
        char16_t units[kRoom];
        const std::size_t count = writeDateAndTime(formats, moment, units);
        return count > 0 && std::u16string_view(units, count) == dateText(format, moment);
    });
}

bool numbersComeOut(const pinorama::RegionFormats& formats, UNumberFormat* format)
{
    for (const int fractionDigits : kFractionDigits) {
        unum_setAttribute(format, UNUM_MIN_FRACTION_DIGITS, fractionDigits);
        unum_setAttribute(format, UNUM_MAX_FRACTION_DIGITS, fractionDigits);
        for (const double number : kNumbers) {
            const std::u16string expected = printed([=](char16_t* units, UErrorCode* status) {
                return unum_formatDouble(format, number, units, kRoom, nullptr, status);
            });
            char16_t units[kRoom];
            const std::size_t count = writeNumber(formats, number, fractionDigits, units);
            if (count == 0 || std::u16string_view(units, count) != expected) return false;
        }
    }
    return true;
}

// False for a region that has to be left to ICU.
bool ask(const std::string& locale, Region* region)
{
    UErrorCode status = U_ZERO_ERROR;
    const DateFormat dates(
        udat_open(UDAT_SHORT, UDAT_MEDIUM, locale.c_str(), u"GMT", -1, nullptr, 0, &status));
    const NumberFormat numbers(
        unum_open(UNUM_DECIMAL, nullptr, 0, locale.c_str(), nullptr, &status));
    if (U_FAILURE(status)) return false;
    askForDates(locale, dates.get(), region);
    askForNumbers(numbers.get(), region);
    return locale.size() <= kLongestLocaleName && datesComeOut(region->formats(), dates.get()) &&
           numbersComeOut(region->formats(), numbers.get());
}

// The texts of all regions one behind the other; equal ones stand there once.
class Texts {
public:
    // Where the list begins.
    std::size_t add(const std::u16string& list)
    {
        const auto [found, isNew] = places_.try_emplace(list, units_.size());
        if (isNew) units_ += list + u'\0';
        return found->second;
    }

    const std::u16string& units() const { return units_; }

private:
    std::map<std::u16string, std::size_t> places_;
    std::u16string units_;
};

std::map<std::string, Region> askForAll()
{
    std::map<std::string, Region> regions;
    UErrorCode status = U_ZERO_ERROR;
    const Names names(uloc_openAvailableByType(ULOC_AVAILABLE_WITH_LEGACY_ALIASES, &status));
    while (const char* name = uenum_next(names.get(), nullptr, &status)) {
        Region region;
        if (ask(name, &region)) regions.emplace(name, std::move(region));
    }
    return regions;
}

bool writeTable(const std::map<std::string, Region>& regions, std::FILE* file)
{
    Texts texts;
    std::fputs(
        "#include \"lib/text/region_table.h\"\n\n"
        "namespace pinorama {\n\n"
        "const RegionRow kRegionRows[] = {\n",
        file);
    for (const auto& [name, region] : regions) {
        const std::size_t pattern = texts.add(region.dateAndTime + u'\0');
        const std::size_t months = texts.add(region.months);
        const std::size_t dayPeriods = texts.add(region.dayPeriods);
        const std::size_t numbers = texts.add(region.numbers);
        std::fprintf(file, "    {\"%s\", %zu, %zu, %zu, %zu},\n", name.c_str(), pattern, months,
                     dayPeriods, numbers);
    }
    std::fprintf(file,
                 "};\nconst std::size_t kRegionRowCount = %zu;\n"
                 "const char16_t kRegionTexts[] = {",
                 regions.size());
    for (std::size_t i = 0; i < texts.units().size(); i++) {
        std::fprintf(file, "%s%u,", i % 16 == 0 ? "\n    " : " ", unsigned{texts.units()[i]});
    }
    std::fputs("\n};\n\n}  // namespace pinorama\n", file);
    return texts.units().size() <= UINT16_MAX;
}
}  // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fputs("usage: make_region_table FILE\n", stderr);
        return 2;
    }
    const std::map<std::string, Region> regions = askForAll();
    if (!regions.contains("en")) {
        std::fputs("make_region_table: ICU writes English in an unknown way\n", stderr);
        return 1;
    }
    std::FILE* file = std::fopen(argv[1], "w");
    if (file == nullptr) {
        std::perror(argv[1]);
        return 1;
    }
    const bool fits = writeTable(regions, file);
    const bool isWritten = std::fclose(file) == 0;
    return fits && isWritten ? 0 : 1;
}
