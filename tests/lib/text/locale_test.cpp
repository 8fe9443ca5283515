#include "lib/text/locale.h"

#include "tests/support/environment.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace pinorama;

using test::ScopedVariable;

TEST(textLanguages, followTheEnvironment)
{
    using Languages = std::vector<std::string>;
    const struct {
        const char *name, *language, *all, *messages, *lang;
        Languages expected;
    } rows[] = {
        {"nothing set", nullptr, nullptr, nullptr, nullptr, {"en"}},
        {"all empty", "", "", "", "", {"en"}},
        {"C", nullptr, "C", nullptr, nullptr, {"en"}},
        {"C with a character set", nullptr, nullptr, nullptr, "C.UTF-8", {"en"}},
        {"POSIX", nullptr, nullptr, "POSIX", "de_DE", {"en"}},
        {"territory", nullptr, nullptr, nullptr, "de_AT.UTF-8", {"de_AT", "de", "en"}},
        {"language only", nullptr, nullptr, nullptr, "de", {"de", "en"}},
        {"English stops the search", nullptr, nullptr, nullptr, "en_GB.UTF-8", {"en_GB", "en"}},
        {"LC_ALL before the others", nullptr, "fr_FR", "it_IT", "de_DE", {"fr_FR", "fr", "en"}},
        {"LC_MESSAGES before LANG", nullptr, nullptr, "it_IT", "de_DE", {"it_IT", "it", "en"}},
        {"an empty one is passed over", nullptr, "", "it_IT", "de_DE", {"it_IT", "it", "en"}},
        {"LANGUAGE before all", "de", "fr_FR", nullptr, nullptr, {"de", "en"}},
        {"LANGUAGE without a locale", "de", nullptr, nullptr, nullptr, {"de", "en"}},
        {"LANGUAGE is a list", "de_AT:fr", "it", nullptr, nullptr, {"de_AT", "de", "fr", "en"}},
        {"no name twice", "de_AT:de_DE", "it", nullptr, nullptr, {"de_AT", "de", "de_DE", "en"}},
        {"empty names", ":de::fr:", "it", nullptr, nullptr, {"de", "fr", "en"}},
        {"English within the list", "de:en:fr", "it", nullptr, nullptr, {"de", "en"}},
        {"C within the list", "de:C:fr", "it", nullptr, nullptr, {"de", "en"}},
        {"LANGUAGE with C", "de", "C", nullptr, nullptr, {"en"}},
        {"LANGUAGE with POSIX", "de", nullptr, nullptr, "POSIX", {"en"}},
        {"LANGUAGE with C.UTF-8", "de", nullptr, nullptr, "C.UTF-8", {"de", "en"}},
        {"modifier",
         nullptr,
         nullptr,
         nullptr,
         "sr_RS.UTF-8@latin",
         {"sr_RS@latin", "sr@latin", "sr_RS", "sr", "en"}},
        {"no way out of the folder", "../../etc:de", "it", nullptr, nullptr, {"de", "en"}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const ScopedVariable language("LANGUAGE", row.language), all("LC_ALL", row.all),
            messages("LC_MESSAGES", row.messages), lang("LANG", row.lang);
        EXPECT_EQ(textLanguages(), row.expected);
    }
}

TEST(numberLocale, followsTheEnvironment)
{
    const struct {
        const char *name, *all, *numeric, *lang, *expected;
    } rows[] = {
        {"nothing set", nullptr, nullptr, nullptr, "en"},
        {"C", "C", "de_DE", "de_DE", "en"},
        {"POSIX", "POSIX", nullptr, nullptr, "en"},
        {"C with a character set", nullptr, nullptr, "C.UTF-8", "en"},
        {"without the character set", nullptr, nullptr, "de_DE.UTF-8", "de_DE"},
        {"LC_ALL first", "fr_FR", "it_IT", "de_DE", "fr_FR"},
        {"LC_NUMERIC second", nullptr, "it_IT", "de_DE", "it_IT"},
        {"an empty one is passed over", "", "", "de_DE", "de_DE"},
        {"currency modifier", nullptr, nullptr, "de_AT@euro", "de_AT"},
        {"script modifier", nullptr, nullptr, "sr_RS.UTF-8@latin", "sr_Latn_RS"},
        {"nonsense", nullptr, nullptr, "!\xff/..", "en"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const ScopedVariable all("LC_ALL", row.all), numeric("LC_NUMERIC", row.numeric),
            time("LC_TIME", "es_ES"), lang("LANG", row.lang);
        EXPECT_EQ(numberLocale(), row.expected);
    }
}

TEST(dateLocale, readsItsOwnVariable)
{
    const ScopedVariable all("LC_ALL", nullptr), numeric("LC_NUMERIC", "it_IT"),
        time("LC_TIME", "de_DE.UTF-8"), lang("LANG", "fr_FR");
    EXPECT_EQ(dateLocale(), "de_DE");
    EXPECT_EQ(numberLocale(), "it_IT");
}
