// Percent escapes of URLs (RFC 2396): a character as the bytes of its UTF-8 form, each written as a
// percent sign and two hexadecimal digits.

#pragma once

#include "lib/objects/string.h"

// Returns a new text that can be a value in a query: letters and digits of ASCII and "-_.!~*'()"
// stay (the unreserved characters of section 2.3), everything else is escaped, the percent sign
// too. A lone surrogate, which has no UTF-8 form, is escaped as U+FFFD.
//
// For null the shared empty text comes back, which releasing leaves alone. Null when memory runs
// out.
[[nodiscard]] TovStringRef TovStringConvertToURL(TovStringRef text);

// Returns a new text with every escape decoded; escapes that follow each other make up UTF-8.
// Everything else stays, "+" included. Null for null, for a percent sign without two hexadecimal
// digits, for escapes that are not valid UTF-8, and if memory runs out.
[[nodiscard]] TovStringRef TovStringConvertFromURL(TovStringRef text);
