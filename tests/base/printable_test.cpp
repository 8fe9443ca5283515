#include "base/printable.h"

#include <gtest/gtest.h>

#include <string_view>

using namespace pinorama;

TEST(appendPrintable, replacesWhatControlsATerminal)
{
    using namespace std::string_view_literals;
    const struct {
        const char* name;
        std::string_view text, expected;
    } rows[] = {
        {"plain", "Rome \u2013 M\u00fcnchen \u65e5\u672c \U0001f600"sv,
         "Rome \u2013 M\u00fcnchen \u65e5\u672c \U0001f600"sv},
        {"nothing", ""sv, ""sv},
        {"line breaks", "a\nb\r\nc\td"sv, "a b  c d"sv},
        {"escape sequence", "\x1b[31mred\x07"sv, "\ufffd[31mred\ufffd"sv},
        {"zero and delete", "a\0b\x7f"sv, "a\ufffdb\ufffd"sv},
        {"upper control characters", "a\u0080b\u009bc"sv, "a\ufffdb\ufffdc"sv},
        {"beside them", "\u00a0\u00c2"sv, "\u00a0\u00c2"sv},
        {"direction overrides", "a\u202egpj.exe"sv, "a\ufffdgpj.exe"sv},
        {"embeddings and isolates", "\u202a\u202b\u202c\u202d\u2066\u2067\u2068\u2069"sv,
         "\ufffd\ufffd\ufffd\ufffd\ufffd\ufffd\ufffd\ufffd"sv},
        {"beside these", "\u2029\u202f\u2065\u206a\u200e\u200f"sv,
         "\u2029\u202f\u2065\u206a\u200e\u200f"sv},
        {"malformed bytes",
         "a\x9b"
         "b\xff\xc3"sv,
         "a\ufffdb\ufffd\ufffd"sv},
        {"malformed before controls", "\xe2\x80\x1b[m\xc2"sv, "\ufffd\ufffd\ufffd[m\ufffd"sv},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(printable(row.text), row.expected);
    }
}

TEST(displayControlAt, findsEveryOneOfThem)
{
    std::size_t count = 0;
    for (char32_t character = 0; character < 0x3000; character++) {
        std::string text;
        if (character < 0x80) {
            text = {static_cast<char>(character)};
        } else if (character < 0x800) {
            text = {static_cast<char>(0xc0 | character >> 6),
                    static_cast<char>(0x80 | (character & 0x3f))};
        } else {
            text = {static_cast<char>(0xe0 | character >> 12),
                    static_cast<char>(0x80 | (character >> 6 & 0x3f)),
                    static_cast<char>(0x80 | (character & 0x3f))};
        }
        const DisplayControl found = displayControlAt(text + "x", 0);
        ASSERT_EQ(static_cast<bool>(found), isDisplayControl(character))
            << static_cast<unsigned>(character);
        if (!found) continue;
        count++;
        EXPECT_EQ(found.character, character);
        EXPECT_EQ(found.length, text.size());
    }
    EXPECT_EQ(count, 32u + 1 + 32 + 5 + 4);
}
