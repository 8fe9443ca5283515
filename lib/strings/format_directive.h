// Taking a format template apart into plain text and directives, as printf knows them:
// %[position$][flags][width][.precision][length]conversion. Counts are UTF-16 units.

#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

// How wide an integer is that a directive prints. The two wide ones of C programs of old, int and
// long, are 32 bits here on every machine.
enum class FormatWidth { bits8, bits16, bits32, bits64 };

struct FormatDirective {
    std::size_t begin = 0, end = 0;  // its place in the template, from the percent sign on
    int position = -1;               // of its argument, from 0; -1: the next one
    bool isLeftAligned = false;      // -
    bool showsPlus = false;          // +
    bool showsBlank = false;         // blank
    bool showsForm = false;          // #
    bool fillsWithZeros = false;     // 0
    int width = 0;                   // fewest units to print
    bool takesWidth = false;         // * : the next argument is the width
    std::optional<int> precision;    // most units of a text, fewest digits of an integer, ...
    bool takesPrecision = false;     // .* : the next argument is the precision
    FormatWidth integerWidth = FormatWidth::bits32;
    bool isLong = false;      // l: the argument is a long, of which 32 bits are printed
    char16_t conversion = 0;  // 0: no directive that the library knows; prints as it stands
};

// Returns the first directive at or after `from`, or nothing when only plain text is left. A
// percent sign that begins no directive comes back with conversion 0.
std::optional<FormatDirective> nextFormatDirective(std::u16string_view format, std::size_t from);
