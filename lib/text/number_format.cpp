#include "lib/text/number_format.h"

#include "base/memory_guard.h"
#include "lib/text/region_formats.h"

#include <unicode/unum.h>

#include <memory>
#include <optional>
#include <span>

using namespace pinorama;

namespace {
constexpr std::int32_t kLongestNumber = 128;  // units, of 20 digits with the longest separators

struct FormatCloser {
    void operator()(UNumberFormat* format) const { unum_close(format); }
};
using FormatHandle = std::unique_ptr<UNumberFormat, FormatCloser>;

FormatHandle open(const std::string& locale, std::optional<std::int32_t> fractionDigits)
{
    UErrorCode status = U_ZERO_ERROR;
    FormatHandle format(unum_open(UNUM_DECIMAL, nullptr, 0, locale.c_str(), nullptr, &status));
    if (U_FAILURE(status)) return nullptr;
    if (fractionDigits) {
        unum_setAttribute(format.get(), UNUM_MIN_FRACTION_DIGITS, *fractionDigits);
        unum_setAttribute(format.get(), UNUM_MAX_FRACTION_DIGITS, *fractionDigits);
    }
    return format;
}
}  // namespace

class pinorama::NumberFormat {
public:
    NumberFormat(std::string locale, std::optional<std::int32_t> fractionDigits)
        : locale_(std::move(locale)),
          fractionDigits_(fractionDigits),
          region_(regionFormats(locale_))
    {
    }

    // Writes a number that is told in `fractionDigits` digits behind the separator unless the
    // format has its own. Returns the units written; 0 when that takes ICU.
    std::size_t writeAsRegion(double value, std::optional<std::int32_t> fractionDigits,
                              std::span<char16_t> dest) const
    {
        if (fractionDigits_) fractionDigits = fractionDigits_;
        return region_ && fractionDigits ? writeNumber(*region_, value, *fractionDigits, dest) : 0;
    }

    // Null when ICU cannot make one.
    const UNumberFormat* format()
    {
        if (!format_) format_ = open(locale_, fractionDigits_);
        return format_.get();
    }

private:
    std::string locale_;
    std::optional<std::int32_t> fractionDigits_;
    std::optional<RegionFormats> region_;
    FormatHandle format_;
};

namespace {
// Makes a text of a number, by one of ICU's printing functions where that is needed.
template <typename Number, typename Print>
TovStringRef createText(pinorama::NumberFormat* format, Number value,
                        std::optional<std::int32_t> fractionDigits, Print print)
{
    if (format == nullptr) return nullptr;
    char16_t units[kLongestNumber];
    const std::size_t count =
        format->writeAsRegion(static_cast<double>(value), fractionDigits, units);
    if (count > 0) return createString({units, count});

    const UNumberFormat* opened = format->format();
    if (opened == nullptr) return nullptr;
    UErrorCode status = U_ZERO_ERROR;
    const std::int32_t length = print(opened, value, units, kLongestNumber, nullptr, &status);
    if (U_FAILURE(status)) return nullptr;
    return createString({units, static_cast<std::size_t>(length)});
}
}  // namespace

pinorama::NumberFormat* pinorama::createNumberFormat(const std::string& locale)
{
    return baseGuardMemory([&] { return new NumberFormat(locale, std::nullopt); });
}

pinorama::NumberFormat* pinorama::createNumberFormat(const std::string& locale,
                                                     std::int32_t fractionDigits)
{
    return baseGuardMemory([&] { return new NumberFormat(locale, fractionDigits); });
}

void pinorama::releaseNumberFormat(NumberFormat* format)
{
    delete format;
}

TovStringRef pinorama::createNumberText(NumberFormat* format, std::int64_t value)
{
    return createText(format, value, 0, unum_formatInt64);
}

TovStringRef pinorama::createNumberText(NumberFormat* format, double value)
{
    return createText(format, value, std::nullopt, unum_formatDouble);
}
