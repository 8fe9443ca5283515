#include "lib/text/date_time_stamp.h"

#include "base/time_zone.h"
#include "lib/text/locale.h"

#include <unicode/udat.h>

#include <memory>

using namespace pinorama;

namespace {
struct FormatCloser {
    void operator()(UDateFormat* format) const { udat_close(format); }
};

std::u16string formatted(std::int64_t unixSeconds, UDateFormatStyle time, UDateFormatStyle date)
{
    // The zone is the C library's, so the formatter is given the clock's time as if it were UTC.
    const std::int64_t clock = unixSeconds + utcOffsetAt(unixSeconds);
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<UDateFormat, FormatCloser> format(
        udat_open(time, date, dateLocale().c_str(), u"GMT", -1, nullptr, 0, &status));
    if (U_FAILURE(status)) return {};

    std::u16string text(128, u'\0');
    const std::int32_t length =
        udat_format(format.get(), static_cast<UDate>(clock) * 1000.0, text.data(),
                    static_cast<std::int32_t>(text.size()), nullptr, &status);
    if (U_FAILURE(status)) return {};
    text.resize(static_cast<std::size_t>(length));

    for (char16_t& unit : text) {
        const bool isNarrowOrHard = unit == u'\u202f' || unit == u'\u00a0' || unit == u'\u2009';
        if (isNarrowOrHard) unit = u' ';
    }
    return text;
}
}  // namespace

std::u16string pinorama::shortDate(std::int64_t unixSeconds)
{
    return formatted(unixSeconds, UDAT_NONE, UDAT_SHORT);
}

std::u16string pinorama::timeWithSeconds(std::int64_t unixSeconds)
{
    return formatted(unixSeconds, UDAT_MEDIUM, UDAT_NONE);
}
