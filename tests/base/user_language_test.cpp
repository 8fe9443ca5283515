#include "base/user_language.h"

#include "tests/support/environment.h"

#include <gtest/gtest.h>

using namespace pinorama;

TEST(userLanguage, isTheFirstThatTheEnvironmentNames)
{
    const struct {
        const char *languages, *all, *messages, *lang;
        const char* expected;
    } rows[] = {
        {"de:en", "fr_FR.UTF-8", "it_IT", "es_ES", "de"},
        {"de_CH", nullptr, nullptr, nullptr, "de_CH"},
        {nullptr, "fr_FR.UTF-8", "it_IT", "es_ES", "fr_FR.UTF-8"},
        {"", nullptr, "it_IT", "es_ES", "it_IT"},
        {nullptr, "", "", "es_ES", "es_ES"},
        {nullptr, nullptr, nullptr, nullptr, ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.expected);
        const test::ScopedVariable languages("LANGUAGE", row.languages);
        const test::ScopedVariable all("LC_ALL", row.all);
        const test::ScopedVariable messages("LC_MESSAGES", row.messages);
        const test::ScopedVariable lang("LANG", row.lang);
        EXPECT_EQ(userLanguage(), row.expected);
    }
}
