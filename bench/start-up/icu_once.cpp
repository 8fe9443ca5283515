// The floor of a program that shows numbers and dates in the user's language: formats one of each
// with ICU and ends.

#include <unicode/datefmt.h>
#include <unicode/numfmt.h>

#include <cstdio>
#include <ctime>
#include <memory>
#include <string>

int main()
{
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::NumberFormat> numbers(icu::NumberFormat::createInstance(status));
    const std::unique_ptr<icu::DateFormat> dates(icu::DateFormat::createDateTimeInstance(
        icu::DateFormat::kLong, icu::DateFormat::kMedium, icu::Locale::getDefault()));
    if (U_FAILURE(status) || !numbers || !dates) return 1;

    icu::UnicodeString text;
    numbers->format(1234567.891, text);
    text += u'\n';
    dates->format(1000.0 * static_cast<double>(std::time(nullptr)), text);
    std::string bytes;
    text.toUTF8String(bytes);
    return std::puts(bytes.c_str()) < 0;
}
