#include "lib/ui/strings_table.h"

#include "base/utf8.h"
#include "tests/support/icu_texts.h"
#include "tests/support/random_texts.h"

#include <gtest/gtest.h>

using namespace pinorama;

namespace {
// The value of a key as UTF-8, or "(none)".
std::string valueOf(const StringsTable& table, std::u16string_view key)
{
    const auto value = table.find(key);
    return value ? displayUTF8(*value) : "(none)";
}
}  // namespace

TEST(StringsTable, readsOneEntry)
{
    const struct {
        const char *name, *text, *expected;
    } rows[] = {
        {"plain", "\"k\" = \"v\";", "v"},
        {"no blanks", "\"k\"=\"v\";", "v"},
        {"many blanks", " \t\"k\" \t =  \"v\"  ;  ", "v"},
        {"no line feed at the end", "\n\n\"k\" = \"v\";", "v"},
        {"line ends of DOS", "// c\r\n\"k\" = \"v\";\r\n", "v"},
        {"byte order mark", "\xef\xbb\xbf\"k\" = \"v\";", "v"},
        {"empty value", "\"k\" = \"\";", ""},
        {"UTF-8", "\"k\" = \"48\u00b0 \U0001f4f7\";", "48\u00b0 \U0001f4f7"},
        {"quotes and backslash", R"("k" = "\"a\\b\"";)", "\"a\\b\""},
        {"control characters", R"("k" = "a\nb\tc\rd";)", "a\nb\tc\rd"},
        {"unit by number", R"("k" = "\U00e4\U00C4";)", "\u00e4\u00c4"},
        {"pair by number", R"("k" = "\UD83D\UDCF7";)", "\U0001f4f7"},
        {"digits after a number", R"("k" = "\U00e41";)", "\u00e41"},
        {"comment marks in a text", "\"k\" = \"http://x /* y */\";", "http://x /* y */"},
        {"line comment before", "// \"k\" = \"no\";\n\"k\" = \"v\";", "v"},
        {"comment before", "/* \"k\" = \"no\";\n */ \"k\" = \"v\";", "v"},
        {"comments within", "\"k\" /* a */ = // b\n \"v\" /* c */ ;", "v"},
        {"comment after", "\"k\" = \"v\"; // tail", "v"},
        {"two on a line", "\"j\" = \"w\"; \"k\" = \"v\";", "v"},
        {"later one counts", "\"k\" = \"w\";\n\"k\" = \"v\";", "v"},
        {"key by number", R"("\U006b" = "v";)", "v"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(valueOf(StringsTable(row.text), u"k"), row.expected);
    }
}

TEST(StringsTable, skipsADamagedLineAndReadsTheNext)
{
    const struct {
        const char *name, *line;
    } rows[] = {
        {"no quotes", "k = v;"},
        {"key without quotes", "k = \"v\";"},
        {"value without quotes", "\"k\" = v;"},
        {"open key", "\"k = v;"},
        {"key closed by the value's quote", "\"k = \"v\";"},
        {"open value", "\"k\" = \"v;"},
        {"no equals sign", "\"k\" \"v\";"},
        {"no value", "\"k\" = ;"},
        {"key alone", "\"k\";"},
        {"no semicolon", "\"k\" = \"v\""},
        {"unknown escape", R"("k" = "\q";)"},
        {"three digits", R"("k" = "\U0e4";)"},
        {"no digits", R"("k" = "\U";)"},
        {"backslash at the end", "\"k\" = \"v\\"},
        {"invalid UTF-8", "\"k\" = \"\xff\";"},
        {"overlong UTF-8", "\"k\" = \"\xc0\xaf\";"},
        {"binary", "\x01\x02\xfe\""},
        {"stray brace", "}"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const StringsTable table("\"a\" = \"before\";\n" + std::string(row.line) +
                                 "\n\"b\" = \"after\";\n\"c\" = \"last\";\n");
        EXPECT_EQ(valueOf(table, u"a"), "before");
        EXPECT_EQ(valueOf(table, u"k"), "(none)");
        EXPECT_EQ(valueOf(table, u"b"), "after");
        EXPECT_EQ(valueOf(table, u"c"), "last");
    }
}

TEST(StringsTable, endsAnywhere)
{
    const std::string whole = "/* c */ \"a\\\"\\U00e4\" = \"v\"; // t\n";
    for (std::size_t length = 0; length <= whole.size(); length++) {
        SCOPED_TRACE(length);
        const StringsTable table(std::string_view(whole).substr(0, length));
        EXPECT_EQ(table.size(), length > whole.find(';') ? 1u : 0u);
    }
}

TEST(StringsTable, takesAnEscapedZeroAsAUnit)
{
    const StringsTable table(R"("k" = "a\U0000b";)");
    EXPECT_EQ(table.find(u"k"), std::u16string_view(u"a\0b", 3));
}

TEST(StringsTable, anUnclosedCommentExtendsToTheEnd)
{
    const StringsTable table("\"a\" = \"v\";\n/* \"b\" = \"w\";\n");
    EXPECT_EQ(table.size(), 1u);
}

TEST(StringsTable, matchesKeysExactly)
{
    const StringsTable table("\"Key\" = \"v\";");
    EXPECT_EQ(valueOf(table, u"key"), "(none)");
    EXPECT_EQ(valueOf(table, u"Key "), "(none)");
    EXPECT_EQ(valueOf(table, u""), "(none)");
}

TEST(StringsTable, listsTheDamagedLines)
{
    const StringsTable table(
        "// first\n\"a\" = \"1\";\nnonsense\n/* x\n */ \"b\" = 2;\n\"c\" = \"3\"\n");
    EXPECT_EQ(table.damagedLines(), (std::vector<std::size_t>{3, 5, 6}));
    EXPECT_EQ(table.size(), 1U);
    EXPECT_TRUE(StringsTable("").damagedLines().empty());
}

TEST(StringsTable, holdsTheTextOfAllKindsOfBytes)
{
    test::forRandomBytes([](std::string bytes) {
        std::erase_if(bytes, [](char c) { return c == '"' || c == '\\' || c == '\n'; });
        const StringsTable table("\"k\" = \"" + bytes + "\";\n");
        const auto value = table.find(u"k");
        const auto expected = test::unitsByICU(bytes);
        ASSERT_EQ(value.has_value(), expected.has_value());
        if (expected) {
            ASSERT_EQ(*value, *expected);
        }
        ASSERT_EQ(table.damagedLines().size(), expected ? 0u : 1u);
    });
}
