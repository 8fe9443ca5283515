// Addresses with places for values in them. A template is data that anybody may edit, so it is read
// here conversion by conversion and never handed to a printing function.

#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace app {

using TemplateValue = std::variant<double, std::u16string>;

// Fills values in for the conversions of a template: "%f" and "%F" take a number, "%@" a text.
// Flags
// (-, +, blank, 0), width and precision are as in C; the decimal point is a point in every locale.
// "%n$f" takes the n-th value, counted from 1; the others take theirs in turn.
//
// Returns nothing when a conversion is none of these, has no value, or has a value of the other
// kind.
std::optional<std::u16string> fillTemplate(std::u16string_view addressTemplate,
                                           const std::vector<TemplateValue>& values);

// The escaped form of a name for use in an address (RFC 2396): what may stand in an address stays,
// every other byte of the UTF-8 form becomes %XX with upper-case digits.
std::u16string escapeForAddress(std::u16string_view name);

}  // namespace app
