#include "lib/text/date_format.h"

#include <unicode/udat.h>

#include <memory>

using namespace pinorama;

namespace {
constexpr std::int32_t kMaxDateLength = 256;  // units
constexpr double kMillisecondsPerSecond = 1000.0;

struct FormatCloser {
    void operator()(UDateFormat* format) const { udat_close(format); }
};
using FormatHandle = std::unique_ptr<UDateFormat, FormatCloser>;

FormatHandle open(const std::string& locale, pinorama::DateStyle style)
{
    // The times are clock times already, so that they are read as those of a place without offset.
    constexpr const char16_t* kNoOffset = u"GMT";
    UErrorCode status = U_ZERO_ERROR;
    FormatHandle format;
    switch (style) {
    case DateStyle::date:
        format.reset(
            udat_open(UDAT_NONE, UDAT_MEDIUM, locale.c_str(), kNoOffset, -1, nullptr, 0, &status));
        break;
    case DateStyle::dateAndTime:
        format.reset(
            udat_open(UDAT_SHORT, UDAT_MEDIUM, locale.c_str(), kNoOffset, -1, nullptr, 0, &status));
        break;
    case DateStyle::dayAndMonth:
        format.reset(udat_open(UDAT_PATTERN, UDAT_PATTERN, locale.c_str(), kNoOffset, -1, u"d MMMM",
                               -1, &status));
        break;
    }
    return U_SUCCESS(status) ? std::move(format) : nullptr;
}

// Making a formatter takes many times as long as using it, and a program writes its dates in one
// style of one language: the last formatter is kept.
const UDateFormat* formatFor(const std::string& locale, pinorama::DateStyle style)
{
    static struct {
        std::string locale;
        DateStyle style;
        FormatHandle format;
    } last;
    if (!last.format || last.locale != locale || last.style != style) {
        last.format = open(locale, style);
        last.locale = locale;
        last.style = style;
    }
    return last.format.get();
}
}  // namespace

TovStringRef pinorama::createDateText(const std::string& locale, DateStyle style,
                                      std::int64_t seconds)
{
    char16_t units[kMaxDateLength];
    const UDateFormat* format = formatFor(locale, style);
    if (format == nullptr) return nullptr;
    UErrorCode status = U_ZERO_ERROR;
    const std::int32_t length =
        udat_format(format, static_cast<double>(seconds) * kMillisecondsPerSecond, units,
                    kMaxDateLength, nullptr, &status);
    if (U_FAILURE(status)) return nullptr;
    return createString({units, static_cast<std::size_t>(length)});
}
