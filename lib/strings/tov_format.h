// Building texts from templates, as printf does it, with %@ for a text. Numbers never follow the
// locale: a fraction always has a point.
//
//   %@                  text handle; "(null)" for null
//   %d %i %u %x %X %o   integer of 32 bits, also with l; of 64 bits with q, ll, j, z, t; of 16
//                       and 8 with h and hh
//   %f %F %e %E %g %G   floating-point number
//   %c %C               character: a MacRoman byte, a UTF-16 unit; 0 prints nothing
//   %s                  MacRoman C string; "(null)" for null
//   %%                  percent sign
//
// Texts and C strings stand in for each other, and so do numbers of all kinds and characters.
//
// Positions (%2$@), the flags "-+ #0", width and precision, * included, are as in C. Width, and the
// precision of numbers, end at 1000.
//
// A template may come from outside, such as a table of texts: a directive whose argument is
// missing, or is a text where a number is wanted or the other way round, prints nothing; an unknown
// one prints itself.

#pragma once

#include <concepts>
#include <cstdarg>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <string_view>

#include "lib/objects/string.h"

// One argument of a template. Texts and C strings are borrowed.
struct FormatArgument {
    enum class Kind : std::uint8_t { integer, number, character, text, cString };

    FormatArgument() : kind(Kind::integer), integer(0) {}
    template <std::integral Integer>
    FormatArgument(Integer value) : kind(Kind::integer), integer(static_cast<std::int64_t>(value))
    {
    }
    FormatArgument(double value) : kind(Kind::number), number(value) {}
    FormatArgument(char value) : kind(Kind::character), integer(value) {}
    FormatArgument(TovStringRef value) : kind(Kind::text), text(value) {}
    FormatArgument(const char* value) : kind(Kind::cString), cString(value) {}

    Kind kind;
    union {
        std::int64_t integer;  // a value of 64 unsigned bits keeps its bits
        double number;
        TovStringRef text;
        const char* cString;
    };
};

// Returns a new immutable text, or null if memory runs out.
[[nodiscard]] TovStringRef tovFormat(std::u16string_view format,
                                     std::span<const FormatArgument> arguments);
[[nodiscard]] inline TovStringRef tovFormat(std::u16string_view format,
                                            std::initializer_list<FormatArgument> arguments)
{
    return tovFormat(format, std::span(arguments.begin(), arguments.size()));
}

// Appends the text to `target`, which stays as it is when it is null or immutable, and when memory
// runs out; false then.
bool tovAppendFormat(TovStringRef* target, std::u16string_view format,
                     std::span<const FormatArgument> arguments);
inline bool tovAppendFormat(TovStringRef* target, std::u16string_view format,
                            std::initializer_list<FormatArgument> arguments)
{
    return tovAppendFormat(target, format, std::span(arguments.begin(), arguments.size()));
}

// The same with arguments passed as to printf: the template must
// come from the program. Returns a new immutable text; null for a null template, and when memory
// runs out. At most 32 arguments are taken. With l an argument may be an int or a long; only its
// low 32 bits are printed.
[[nodiscard]] TovStringRef TovStringCreateWithFormat(TovStringRef format, ...);
[[nodiscard]] TovStringRef tovFormatList(std::u16string_view format, std::va_list arguments);
