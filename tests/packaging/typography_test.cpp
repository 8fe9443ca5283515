// Signs that languages write otherwise than English, in the texts of the window, the tables and
// the desktop. Translators type what their keyboard has, and nobody sees a space that may break.

#include "tests/support/translation_file.h"

#include <gtest/gtest.h>

#include <regex>
#include <string>
#include <vector>

using test::Translation;

namespace {
// All texts of a language, whatever they are for; of one with plural forms each form.
std::vector<std::string> textsOf(const std::string& language)
{
    std::vector<std::string> texts;
    for (const char* file : {"/app/translations/pinorama_", "/resources/texts/texts_"}) {
        const std::string path = PINORAMA_SOURCE_FOLDER + (file + language) + ".ts";
        for (const Translation& one : test::translationsIn(path))
            texts.insert(texts.end(), one.forms.begin(), one.forms.end());
    }
    return texts;
}

// Expects that no text of `language` has what `pattern`, of bytes of UTF-8, describes.
void expectNone(const std::string& language, const std::string& pattern)
{
    SCOPED_TRACE(language);
    const auto texts = textsOf(language);
    ASSERT_GT(texts.size(), 200u);
    const std::regex forbidden(pattern);
    for (const std::string& text : texts) EXPECT_FALSE(std::regex_search(text, forbidden)) << text;
}
}  // namespace

// A colon at the beginning of a line reads as if a word were missing.
TEST(typography, frenchSignsStayWithTheirWord)
{
    expectNone("fr", " [:;?!]| \u00bb|\u00ab ");
}

TEST(typography, frenchSignsStandApart)
{
    expectNone("fr", "[a-z][?!]|[a-z];(?= )|[a-z]:(?=[ \n]|$)");
}

TEST(typography, elisionsHaveTheApostropheOfBooks)
{
    for (const char* language : {"fr", "it", "nl"}) expectNone(language, "[A-Za-z]'[A-Za-z]");
}

// Dots after a space stand for words; they belong to the line of the word before them.
TEST(typography, germanDotsStandApartAndStayWithTheirWord)
{
    expectNone("de", "[A-Za-z ](\\.\\.\\.|\u2026)");
}
