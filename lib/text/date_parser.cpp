#include "lib/text/date_parser.h"

#include "base/memory_guard.h"
#include "base/time_zone.h"

#include <unicode/udat.h>

#include <cmath>
#include <cstdint>
#include <memory>
#include <new>
#include <string>

using namespace pinorama;

namespace {
constexpr double kUnixSecondsOf2001 = 978307200.0;
constexpr double kMillisecondsPerSecond = 1000.0;

struct FormatCloser {
    void operator()(UDateFormat* format) const { udat_close(format); }
};

bool isDigit(char16_t unit)
{
    return unit >= u'0' && unit <= u'9';
}

// "4.5.08 8:03" as "04.05.08 08:03". A reader that takes single digits for "dd" by itself also
// takes any separator and counts 32 December as a day of January.
std::u16string withTwoDigits(std::u16string_view text)
{
    std::u16string padded;
    padded.reserve(text.size() + 8);
    for (std::size_t i = 0; i < text.size(); i++) {
        const bool startsNumber = isDigit(text[i]) && (i == 0 || !isDigit(text[i - 1]));
        const bool isAlone = i + 1 == text.size() || !isDigit(text[i + 1]);
        if (startsNumber && isAlone) padded += u'0';
        padded += text[i];
    }
    return padded;
}
}  // namespace

// ICU's part is made for the first text: most programs make the parsers at their start and have
// nothing to read.
class pinorama::DateParser {
public:
    explicit DateParser(const char16_t* pattern) : pattern_(pattern) {}

    // Null if memory runs out.
    UDateFormat* format() const
    {
        if (!format_) format_.reset(open());
        return format_.get();
    }

private:
    UDateFormat* open() const
    {
        // The fields are read as UTC and moved into the process's zone by the C library afterwards,
        // so that reading and showing a date can never disagree about a zone.
        constexpr const char* kNeutralLocale = "";
        UErrorCode status = U_ZERO_ERROR;
        UDateFormat* format = udat_open(UDAT_PATTERN, UDAT_PATTERN, kNeutralLocale, u"GMT", -1,
                                        pattern_, -1, &status);
        if (U_FAILURE(status)) return nullptr;
        // "0000:00:00" is how cameras write that there is no date, and 30 February is a slip of the
        // pen: neither is a date.
        udat_setLenient(format, false);
        return format;
    }

    const char16_t* pattern_;
    mutable std::unique_ptr<UDateFormat, FormatCloser> format_;
};

pinorama::DateParser* pinorama::createDateParser(const char16_t* pattern)
{
    return new (std::nothrow) DateParser(pattern);
}

void pinorama::releaseDateParser(DateParser* parser)
{
    delete parser;
}

TovDateRef pinorama::createDateFromText(const DateParser* parser, std::u16string_view text)
{
    return baseGuardMemory([&]() -> TovDateRef {
        if (parser == nullptr || text.empty()) return nullptr;
        constexpr std::size_t kMaxDateLength = 256;  // units; what follows cannot belong to a match
        const std::u16string padded = withTwoDigits(text.substr(0, kMaxDateLength));
        UDateFormat* format = parser->format();
        if (format == nullptr) return nullptr;

        UErrorCode status = U_ZERO_ERROR;
        std::int32_t position = 0;
        const UDate milliseconds = udat_parse(
            format, padded.data(), static_cast<std::int32_t>(padded.size()), &position, &status);
        if (U_FAILURE(status)) return nullptr;

        const auto local =
            static_cast<std::int64_t>(std::floor(milliseconds / kMillisecondsPerSecond));
        return TovDateCreate(static_cast<double>(instantOfLocalTime(local)) - kUnixSecondsOf2001);
    });
}
