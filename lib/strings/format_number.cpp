#include "lib/strings/format_number.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <iterator>

namespace {
constexpr int kUsualPrecision = 6;

std::string_view signFor(const FormatDirective& directive, bool isNegative)
{
    if (isNegative) return "-";
    if (directive.showsPlus) return "+";
    return directive.showsBlank ? " " : "";
}

std::int64_t narrowed(std::int64_t value, FormatWidth width)
{
    switch (width) {
    case FormatWidth::bits8: return static_cast<std::int8_t>(value);
    case FormatWidth::bits16: return static_cast<std::int16_t>(value);
    case FormatWidth::bits32: return static_cast<std::int32_t>(value);
    case FormatWidth::bits64: break;
    }
    return value;
}

std::uint64_t narrowedUnsigned(std::int64_t value, FormatWidth width)
{
    switch (width) {
    case FormatWidth::bits8: return static_cast<std::uint8_t>(value);
    case FormatWidth::bits16: return static_cast<std::uint16_t>(value);
    case FormatWidth::bits32: return static_cast<std::uint32_t>(value);
    case FormatWidth::bits64: break;
    }
    return static_cast<std::uint64_t>(value);
}

int baseOf(char16_t conversion)
{
    if (conversion == u'x' || conversion == u'X') return 16;
    return conversion == u'o' ? 8 : 10;
}

void makeUpperCase(char* first, const char* last)
{
    std::transform(first, const_cast<char*>(last), first, [](char c) {
        return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    });
}

// Puts a point after the last digit before the exponent, if there is none yet.
char* withPoint(char* first, char* last)
{
    if (std::find(first, last, '.') != last) return last;
    char* place = std::find(first, last, 'e');
    std::memmove(place + 1, place, static_cast<std::size_t>(last - place));
    *place = '.';
    return last + 1;
}

// %#g keeps the zeros that %g drops: `digits` significant digits in the shorter of both forms.
char* printAllDigits(char* first, char* end, double magnitude, int digits)
{
    char* last =
        std::to_chars(first, end, magnitude, std::chars_format::scientific, digits - 1).ptr;
    const char* exponentDigits = std::find(first, last, 'e') + 1;
    if (*exponentDigits == '+') exponentDigits++;
    int exponent = 0;
    std::from_chars(exponentDigits, last, exponent);
    if (exponent < -4 || exponent >= digits) return last;
    return std::to_chars(first, end, magnitude, std::chars_format::fixed, digits - 1 - exponent)
        .ptr;
}

char* printDigits(const FormatDirective& directive, char* first, char* end, double magnitude)
{
    const int precision = std::min(directive.precision.value_or(kUsualPrecision), kMaxFormatPlaces);
    char* last = first;
    switch (directive.conversion) {
    case u'f':
    case u'F':
        last = std::to_chars(first, end, magnitude, std::chars_format::fixed, precision).ptr;
        break;
    case u'e':
    case u'E':
        last = std::to_chars(first, end, magnitude, std::chars_format::scientific, precision).ptr;
        break;
    default:
        last =
            directive.showsForm
                ? printAllDigits(first, end, magnitude, std::max(precision, 1))
                : std::to_chars(first, end, magnitude, std::chars_format::general, precision).ptr;
        break;
    }
    return directive.showsForm ? withPoint(first, last) : last;
}
}  // namespace

FormattedNumber formatInteger(const FormatDirective& directive, std::int64_t value,
                              FormatBuffer& buffer)
{
    const bool isSigned = directive.conversion == u'd' || directive.conversion == u'i';
    std::uint64_t magnitude = narrowedUnsigned(value, directive.integerWidth);
    FormattedNumber result;
    if (isSigned) {
        const std::int64_t number = narrowed(value, directive.integerWidth);
        result.sign = signFor(directive, number < 0);
        magnitude = static_cast<std::uint64_t>(number);
        if (number < 0) magnitude = 0 - magnitude;
    }

    const int base = baseOf(directive.conversion);
    const char* last = std::to_chars(buffer.digits, std::end(buffer.digits), magnitude, base).ptr;
    if (directive.precision == 0 && magnitude == 0) last = buffer.digits;
    if (directive.conversion == u'X') makeUpperCase(buffer.digits, last);
    result.digits = {buffer.digits, static_cast<std::size_t>(last - buffer.digits)};

    const int precision = std::min(directive.precision.value_or(0), kMaxFormatPlaces);
    result.zeros = std::max(precision - static_cast<int>(result.digits.size()), 0);
    if (directive.showsForm && base == 16 && magnitude != 0) {
        result.sign = directive.conversion == u'X' ? "0X" : "0x";
    }
    if (directive.showsForm && base == 8 && result.zeros == 0 && !result.digits.starts_with('0')) {
        result.zeros = 1;
    }
    result.canFillWithZeros = !directive.precision.has_value();
    return result;
}

FormattedNumber formatDouble(const FormatDirective& directive, double value, FormatBuffer& buffer)
{
    FormattedNumber result;
    result.sign = signFor(directive, std::signbit(value));
    char* const last =
        std::isfinite(value)
            ? printDigits(directive, buffer.digits, std::end(buffer.digits), std::fabs(value))
            : std::copy_n(std::isnan(value) ? "nan" : "inf", 3, buffer.digits);
    const bool isUpperCase = directive.conversion < u'a';
    if (isUpperCase) makeUpperCase(buffer.digits, last);
    result.digits = {buffer.digits, static_cast<std::size_t>(last - buffer.digits)};
    result.canFillWithZeros = std::isfinite(value);
    return result;
}
