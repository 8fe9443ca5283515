// The printed form of one number for a format directive, in ASCII and without regard to
// the locale.

#pragma once

#include <cstdint>
#include <string_view>

#include "lib/strings/format_directive.h"

// The pieces that a number is printed in: blanks, sign, zeros, digits. The digits lie in the
// buffer.
struct FormattedNumber {
    std::string_view sign;    // "-", "+", " " or "", followed by "0x" if the directive has #
    int zeros = 0;            // between the sign and the digits
    std::string_view digits;  // or "inf" and "nan"
    bool canFillWithZeros = false;
};

// The maximum width and precision of a number; a template that requests more gets this.
constexpr int kMaxFormatPlaces = 1000;

// Space for the digits of any double with the maximum precision.
struct FormatBuffer {
    char digits[kMaxFormatPlaces + 400];
};

// Prints `value` with the conversion d, i, u, x, X or o; only the bits of the directive's width
// count.
FormattedNumber formatInteger(const FormatDirective& directive, std::int64_t value,
                              FormatBuffer& buffer);

// Prints `value` with the conversion f, F, e, E, g or G, rounded to the nearest, ties to even.
FormattedNumber formatDouble(const FormatDirective& directive, double value, FormatBuffer& buffer);
