// Numbers as the user's language writes them: digits, grouping, decimal separator.

#pragma once

#include <cstdint>
#include <string>

#include "lib/objects/string.h"

namespace pinorama {

class NumberFormat;  // defined in the source only

// Returns a new formatter for whole numbers in decimal style, or null when memory runs out.
// `locale` is a name that numberLocale gives. ICU makes its own formatter for the first number, so
// that a program that shows none does not wait for it. Released with releaseNumberFormat.
[[nodiscard]] NumberFormat* createNumberFormat(const std::string& locale);

// The same for numbers with exactly `fractionDigits` digits after the decimal separator; ties go
// to the even digit.
[[nodiscard]] NumberFormat* createNumberFormat(const std::string& locale,
                                               std::int32_t fractionDigits);

void releaseNumberFormat(NumberFormat* format);

// Return a new text, or null for a null formatter and if memory runs out.
[[nodiscard]] TovStringRef createNumberText(NumberFormat* format, std::int64_t value);
[[nodiscard]] TovStringRef createNumberText(NumberFormat* format, double value);

}  // namespace pinorama
