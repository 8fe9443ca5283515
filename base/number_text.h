// Numbers as texts that any program reads back exactly, whatever the language of the user.

#pragma once

#include <charconv>
#include <string>

namespace pinorama {

// Appends the shortest decimal number that reads back as `value`, without an exponent, which XML
// Schema does not allow in a decimal. `value` is finite.
inline void appendDecimal(double value, std::string* out)
{
    char digits[400];  // the least number greater than 0 has 324 places
    const auto end =
        std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed).ptr;
    out->append(digits, end);
}

}  // namespace pinorama
