#include "cli/text_block.h"

#include "cli/printable.h"

#include <gtest/gtest.h>

#include <string>

using namespace pinorama;

namespace {
std::string printable(std::string_view text)
{
    std::string result;
    appendPrintable(text, &result);
    return result;
}
}  // namespace

TEST(appendPrintable, replacesControlCharacters)
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
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(printable(row.text), row.expected);
    }
}

TEST(appendTextBlock, writesOneLinePerField)
{
    FileReport report{};
    report.path = "/a/b.jpg";
    report.name = "b.jpg";
    report.sizeText = "1.5 MB";
    report.modified = "today";
    report.created = "yesterday";
    report.place = PlaceReport{};
    report.place->city = "Rome";
    report.place->description = "two\nlines";
    std::string block;
    appendTextBlock(report, &block);
    EXPECT_EQ(block,
              "Path:         /a/b.jpg\n"
              "Name:         b.jpg\n"
              "Size:         1.5 MB\n"
              "Modified:     today\n"
              "Created:      yesterday\n"
              "Coordinate:\n"
              "Altitude:\n"
              "Direction:\n"
              "City:         Rome\n"
              "State:\n"
              "Country:\n"
              "Caption:      two lines\n");
}
