#include "lib/text/number_format.h"

#include "base/memory_guard.h"

#include <unicode/unum.h>

#include <memory>
#include <optional>
#include <utility>

using namespace pinorama;

namespace {
constexpr std::int32_t kMaxNumberLength = 128;  // units, of 20 digits with the longest separators

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
    FormatHandle format_{};
};

namespace {
// Makes a text of a number by one of ICU's printing functions.
template <typename Number, typename Print>
TovStringRef createText(pinorama::NumberFormat* format, Number value, Print print)
{
    const UNumberFormat* const opened = format == nullptr ? nullptr : format->format();
    if (opened == nullptr) return nullptr;
    char16_t units[kMaxNumberLength];
    UErrorCode status = U_ZERO_ERROR;
    const std::int32_t length = print(opened, value, units, kMaxNumberLength, nullptr, &status);
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
    return createText(format, value, unum_formatInt64);
}

TovStringRef pinorama::createNumberText(NumberFormat* format, double value)
{
    return createText(format, value, unum_formatDouble);
}
