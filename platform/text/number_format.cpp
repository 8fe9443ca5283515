#include "platform/text/number_format.h"

#include <unicode/unum.h>

#include <memory>
#include <new>
#include <optional>

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

class platform::NumberFormat {
public:
    NumberFormat(std::string locale, std::optional<std::int32_t> fractionDigits)
        : locale_(std::move(locale)), fractionDigits_(fractionDigits)
    {
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
    FormatHandle format_;
};

namespace {
// Runs one of ICU's printing functions and makes a text of what it printed.
template <typename Print>
TovStringRef createText(platform::NumberFormat* format, Print print)
{
    const UNumberFormat* opened = format == nullptr ? nullptr : format->format();
    if (opened == nullptr) return nullptr;
    char16_t units[kLongestNumber];
    UErrorCode status = U_ZERO_ERROR;
    const std::int32_t length = print(opened, units, &status);
    if (U_FAILURE(status)) return nullptr;
    return platform::createString({units, static_cast<std::size_t>(length)});
}
}  // namespace

platform::NumberFormat* platform::createNumberFormat(const std::string& locale)
{
    return new (std::nothrow) NumberFormat(locale, std::nullopt);
}

platform::NumberFormat* platform::createNumberFormat(const std::string& locale,
                                                     std::int32_t fractionDigits)
{
    return new (std::nothrow) NumberFormat(locale, fractionDigits);
}

void platform::releaseNumberFormat(NumberFormat* format)
{
    delete format;
}

TovStringRef platform::createNumberText(NumberFormat* format, std::int64_t value)
{
    return createText(
        format, [value](const UNumberFormat* opened, char16_t* units, UErrorCode* status) {
            return unum_formatInt64(opened, value, units, kLongestNumber, nullptr, status);
        });
}

TovStringRef platform::createNumberText(NumberFormat* format, double value)
{
    return createText(
        format, [value](const UNumberFormat* opened, char16_t* units, UErrorCode* status) {
            return unum_formatDouble(opened, value, units, kLongestNumber, nullptr, status);
        });
}
