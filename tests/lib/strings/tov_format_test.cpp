#include "lib/strings/tov_format.h"

#include "base/alloc.h"
#include "lib/strings/string_holder.h"
#include "lib/strings/tov_string.h"
#include "tests/support/texts.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

using namespace pinorama;

using test::mutableText;
using test::takeUTF8;
using test::text;
using test::utf8;

namespace {
using Arguments = std::vector<FormatArgument>;

std::optional<std::string> formatted(std::u16string_view format, const Arguments& arguments)
{
    return takeUTF8(tovFormat(format, arguments));
}
}  // namespace

TEST(tovFormat, printsEveryConversion)
{
    const auto word = text("caf\u00e9");
    const struct {
        const char* name;
        std::u16string format;
        Arguments arguments;
        std::string expected;
    } rows[] = {
        {"plain text", u"photo \u00e9", {}, "photo é"},
        {"empty", u"", {}, ""},
        {"text", u"<%@>", {word.get()}, "<café>"},
        {"null text", u"<%@>", {TovStringRef{}}, "<(null)>"},
        {"two texts", u"%@%@", {word.get(), word.get()}, "cafécafé"},
        {"integer", u"%i", {-42}, "-42"},
        {"decimal", u"%d", {42}, "42"},
        {"long", u"%li", {-5}, "-5"},
        {"unsigned", u"%u", {-1}, "4294967295"},
        {"unsigned long", u"%lu", {-1}, "4294967295"},
        {"64 bits", u"%qu", {std::numeric_limits<std::uint64_t>::max()}, "18446744073709551615"},
        {"64 bits with ll", u"%llu", {std::uint64_t{1} << 40}, "1099511627776"},
        {"64 bits signed",
         u"%qi",
         {std::numeric_limits<std::int64_t>::min()},
         "-9223372036854775808"},
        {"hexadecimal", u"%x", {-1}, "ffffffff"},
        {"hexadecimal long", u"%lx", {-1}, "ffffffff"},
        {"capital hexadecimal", u"%X", {0xbeef}, "BEEF"},
        {"octal", u"%o", {8}, "10"},
        {"16 bits", u"%hi", {70000}, "4464"},
        {"8 bits", u"%hhu", {-1}, "255"},
        {"more bits than printed", u"%i", {std::int64_t{1} << 32 | 7}, "7"},
        {"character", u"%c", {'N'}, "N"},
        {"character of MacRoman", u"%c", {'\x8e'}, "é"},
        {"character 0", u"<%c>", {'\0'}, "<>"},
        {"unit", u"%C", {0x20ac}, "€"},
        {"unit 0", u"<%C>", {0}, "<>"},
        {"C string", u"%s", {"caf\x8e"}, "café"},
        {"null C string", u"%s", {static_cast<const char*>(nullptr)}, "(null)"},
        {"double", u"%f", {48.5}, "48.500000"},
        {"one place", u"%.1f", {0.25}, "0.2"},
        {"no place", u"%.0f m", {2.5}, "2 m"},
        {"minus nothing", u"%.0f", {-0.4}, "-0"},
        {"exponent", u"%e", {12345.0}, "1.234500e+04"},
        {"shortest", u"%g", {0.0001}, "0.0001"},
        {"shortest exponent", u"%G", {1e-5}, "1E-05"},
        {"infinity", u"%f", {std::numeric_limits<double>::infinity()}, "inf"},
        {"percent sign", u"100%%", {}, "100%"},
        {"percent sign takes nothing", u"%%%i", {7}, "%7"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(formatted(row.format, row.arguments), row.expected);
    }
}

TEST(tovFormat, alignsAndPads)
{
    const auto word = text("word");
    const struct {
        const char* name;
        std::u16string format;
        Arguments arguments;
        std::string expected;
    } rows[] = {
        {"zeros", u"%02i", {7}, "07"},
        {"zeros after the sign", u"%05i", {-42}, "-0042"},
        {"blanks", u"%5i", {-42}, "  -42"},
        {"left", u"%-5i|", {-42}, "-42  |"},
        {"plus", u"%+i", {42}, "+42"},
        {"blank", u"% i", {42}, " 42"},
        {"form", u"%#x", {255}, "0xff"},
        {"no groups, whatever the locale says", u"%'i", {1234567}, "1234567"},
        {"fewest digits", u"%.3i", {7}, "007"},
        {"text", u"%6@|", {word.get()}, "  word|"},
        {"text left", u"%-6@|", {word.get()}, "word  |"},
        {"text cut", u"%.2@|", {word.get()}, "wo|"},
        {"C string cut", u"%.2s|", {"word"}, "wo|"},
        {"character", u"%3c|", {'N'}, "  N|"},
        {"character 0", u"%3c|", {'\0'}, "   |"},
        {"width from an argument", u"%*i|", {5, 42}, "   42|"},
        {"negative width from an argument", u"%*i|", {-5, 42}, "42   |"},
        {"precision from an argument", u"%.*f", {2, 1.0}, "1.00"},
        {"negative precision from an argument", u"%.*f", {-2, 1.0}, "1.000000"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(formatted(row.format, row.arguments), row.expected);
    }
}

TEST(tovFormat, takesArgumentsByPosition)
{
    const auto a = text("a"), b = text("b");
    EXPECT_EQ(formatted(u"%2$@%1$@%2$@", {a.get(), b.get()}), "bab");
    EXPECT_EQ(formatted(u"%2$.1f° %1$c", {'N', 48.25}), "48.2° N");
    EXPECT_EQ(formatted(u"%2$@%@%@", {a.get(), b.get()}), "bab");
}

TEST(tovFormat, isHarmlessWithWhatDoesNotFit)
{
    const auto word = text("word");
    const struct {
        const char* name;
        std::u16string format;
        Arguments arguments;
        std::string expected;
    } rows[] = {
        {"no argument", u"<%@>", {}, "<>"},
        {"one argument too few", u"<%i %i>", {1}, "<1 >"},
        {"position past the end", u"<%3$@>", {word.get()}, "<>"},
        {"enormous position", u"<%99999999999999999999$@>", {word.get()}, "<>"},
        {"position 0", u"<%0$@>", {word.get()}, "<%0$@>"},
        {"number for a text", u"<%@>", {7}, "<>"},
        {"number for a C string", u"<%s>", {7.0}, "<>"},
        {"text for a number", u"<%i>", {word.get()}, "<>"},
        {"C string for a number", u"<%f>", {"word"}, "<>"},
        {"integer for a double", u"%.1f", {7}, "7.0"},
        {"double for an integer", u"%i", {7.9}, "7"},
        {"huge double for an integer", u"%qi", {1e300}, "9223372036854775807"},
        {"character for an integer", u"%i", {'N'}, "78"},
        {"character for a double", u"%.0f", {'N'}, "78"},
        {"double for a character", u"%c", {78.0}, "N"},
        {"text for a C string", u"%s", {word.get()}, "word"},
        {"C string for a text", u"%@", {"word"}, "word"},
        {"unknown conversion", u"<%y%i>", {1}, "<%y1>"},
        {"memory writing is unknown", u"<%n>", {1}, "<%n>"},
        {"unfinished", u"100%", {1}, "100%"},
        {"unfinished width", u"100%-5", {1}, "100%-5"},
        {"percent sign in between", u"%5 %i", {1}, "%5 1"},
        {"width missing", u"<%*i>", {}, "<>"},
        {"width is a text", u"<%*i>", {word.get(), 7}, "<7>"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(formatted(row.format, row.arguments), row.expected);
    }
}

TEST(tovFormat, limitsWidthAndPrecision)
{
    EXPECT_EQ(formatted(u"%99999999999i", {1})->size(), 1000u);
    EXPECT_EQ(formatted(u"%.99999999999i", {1})->size(), 1000u);
    EXPECT_EQ(formatted(u"%.99999999999f", {1.0})->size(), 1002u);
    EXPECT_EQ(formatted(u"%.1000f", {-std::numeric_limits<double>::max()})->size(), 1311u);
    EXPECT_EQ(formatted(u"%*i", {std::numeric_limits<std::int64_t>::min(), 1})->size(), 1000u);
    const auto longText = text(std::string(3000, 'x'));
    EXPECT_EQ(formatted(u"%.2000@", {longText.get()})->size(), 2000u);
}

TEST(tovFormat, keepsTheZerosOfAShortFormOnRequest)
{
    EXPECT_EQ(formatted(u"%#g", {1.0}), "1.00000");
    EXPECT_EQ(formatted(u"%#.3g", {0.00012}), "0.000120");
    EXPECT_EQ(formatted(u"%#.3g", {0.000012}), "1.20e-05");
    EXPECT_EQ(formatted(u"%#.2g", {99.95}), "1.0e+02");
    EXPECT_EQ(formatted(u"%#.1g", {5.0}), "5.");
    EXPECT_EQ(formatted(u"%#.0g", {0.0}), "0.");
    EXPECT_EQ(formatted(u"%#.400g", {5e-324})->size(), 406u) << "1 digit, point, 399, e-324";
}

TEST(tovFormat, givesAnImmutableText)
{
    StringHolder result(tovFormat(u"%i", {1}));
    TovStringAppendCString(result.slot(), "2");
    EXPECT_EQ(utf8(result.get()), "1");
}

TEST(tovAppendFormat, appendsInPlace)
{
    auto target = mutableText("a");
    EXPECT_TRUE(tovAppendFormat(target.slot(), u"%i%@", {7, text("b").get()}));
    EXPECT_EQ(utf8(target.get()), "a7b");
}

TEST(tovAppendFormat, takesTheTargetAsItWasForAnArgument)
{
    auto target = mutableText("abcdefghijklmno");
    EXPECT_TRUE(tovAppendFormat(target.slot(), u"<%20@|%@>", {target.get(), target.get()}));
    EXPECT_EQ(utf8(target.get()), "abcdefghijklmno<     abcdefghijklmno|abcdefghijklmno>");
}

TEST(tovAppendFormat, refusesNullAndImmutableTargets)
{
    TovStringRef null = nullptr;
    EXPECT_FALSE(tovAppendFormat(nullptr, u"a", {}));
    EXPECT_FALSE(tovAppendFormat(&null, u"a", {}));
    auto fixed = text("a");
    EXPECT_FALSE(tovAppendFormat(fixed.slot(), u"b", {}));
    EXPECT_EQ(utf8(fixed.get()), "a");
}

TEST(tovAppendFormat, leavesTheTargetAloneWhenMemoryRunsOut)
{
    const auto word = text(std::string(100, 'w'));
    auto target = mutableText("a");
    baseFailAllocation(2);
    EXPECT_FALSE(tovAppendFormat(target.slot(), u"%30i %@ %500f %s %c %C",
                                 {1, word.get(), 2.0, "three", 'N', 4}));
    EXPECT_TRUE(baseAllocationHasFailed());
    EXPECT_EQ(utf8(target.get()), "a");
}

TEST(tovFormat, givesNullWhenMemoryRunsOut)
{
    const auto word = text(std::string(100, 'w'));
    std::uint64_t nth = 1;
    for (;; nth++) {
        baseFailAllocation(nth);
        StringHolder result(tovFormat(u"%@ %500i %@", {word.get(), 1, word.get()}));
        if (!baseAllocationHasFailed()) break;
        EXPECT_FALSE(result);
    }
    baseFailAllocation(0);
    EXPECT_GT(nth, 2u);
}

TEST(TovStringCreateWithFormat, readsItsArgumentsByTheTemplate)
{
    const auto word = text("word");
    const auto format = text("%@ %i %li %qu %.1f %c %s %x %C");
    EXPECT_EQ(takeUTF8(TovStringCreateWithFormat(format.get(), word.get(), -1, -2L, ~0ull, 2.25,
                                                 'N', "bytes", 255u, 0x20ac)),
              "word -1 -2 18446744073709551615 2.2 N bytes ff €");
}

TEST(TovStringCreateWithFormat, takesACharacterAndThreeDoubles)
{
    const auto format = text("%c %.0f\u00b0 %.0f' %.1f\"");
    EXPECT_EQ(takeUTF8(TovStringCreateWithFormat(format.get(), 'N', 48.0, 7.0, 24.4)),
              "N 48° 7' 24.4\"");
}

TEST(TovStringCreateWithFormat, readsPositionsInTheirOrder)
{
    const auto word = text("word");
    const auto format = text("%3$s %1$@ %2$.1f");
    EXPECT_EQ(takeUTF8(TovStringCreateWithFormat(format.get(), word.get(), 0.5, "last")),
              "last word 0.5");
}

TEST(TovStringCreateWithFormat, readsNothingAfterAGap)
{
    const auto format = text("<%1$i %3$i>");
    EXPECT_EQ(takeUTF8(TovStringCreateWithFormat(format.get(), 1, 2, 3)), "<1 >");
}

TEST(TovStringCreateWithFormat, readsWidthsAndPrecisions)
{
    const auto format = text("%*i %.*f %-*@|");
    const auto word = text("word");
    EXPECT_EQ(takeUTF8(TovStringCreateWithFormat(format.get(), 4, 7, 2, 1.0, 6, word.get())),
              "   7 1.00 word  |");
}

TEST(TovStringCreateWithFormat, takesAtMost32Arguments)
{
    std::string thirtyThree;
    for (int i = 0; i < 33; i++) thirtyThree += "%i ";
    const auto format = text(thirtyThree);
    const auto result = takeUTF8(TovStringCreateWithFormat(
        format.get(), 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 22,
        23, 24, 25, 26, 27, 28, 29, 30, 31, 32, 33));
    EXPECT_EQ(result->substr(result->size() - 7), "31 32  ");
}

TEST(TovStringCreateWithFormat, ofNullIsNull)
{
    EXPECT_EQ(TovStringCreateWithFormat(nullptr, 1), nullptr);
}
