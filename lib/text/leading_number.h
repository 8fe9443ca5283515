// The number that a text begins with, read without regard to the locale. White space before it is
// skipped and what follows it is ignored.

#pragma once

#include <cstdint>
#include <string_view>

namespace pinorama {

// A decimal integer with an optional sign; beyond 32 bits the nearest end of the range, 0 when
// there is no digit.
std::int32_t leadingInteger(std::u16string_view units);

// A decimal number with an optional sign, point and exponent, to the nearest double. No hexadecimal
// form, no "inf", no "nan". Too large a number gives an infinity; 0.0 if there is no digit.
double leadingDouble(std::u16string_view units);

}  // namespace pinorama
