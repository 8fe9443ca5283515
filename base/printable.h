// Texts from files, other programs and command lines, made safe for a terminal. Some characters are
// not seen but act: they control a terminal, or change the order in which others are shown. Every
// place where a text is shown or printed replaces or escapes them, and finds them here.

#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace pinorama {

// Stands for a character that must not be shown.
inline constexpr char32_t kReplacementCharacter = 0xfffd;

// True for a control character (C0, delete and C1) and for one that overrides, embeds or isolates a
// direction (Unicode Standard Annex 9, section 2): "gpj.exe" after U+202E reads "exe.jpg". Marks
// that only have a direction themselves are part of ordinary texts.
constexpr bool isDisplayControl(char32_t character)
{
    return character < 0x20 || (character >= 0x7f && character < 0xa0) ||
           (character >= 0x202a && character <= 0x202e) ||
           (character >= 0x2066 && character <= 0x2069);
}

struct DisplayControl {
    char32_t character = 0;
    std::size_t length = 0;  // bytes; 0 for none

    explicit operator bool() const { return length != 0; }
};

// The display control that begins at `at` in valid UTF-8, or none.
DisplayControl displayControlAt(std::string_view text, std::size_t at);

// Appends a text so that it stays on its line and never controls the terminal: line breaks and tabs
// become blanks, other display controls and malformed UTF-8 become U+FFFD.
void appendPrintable(std::string_view text, std::string* out);

// The same as a text of its own.
std::string printable(std::string_view text);

}  // namespace pinorama
