// The texts of all languages against each other: the tables that the programs read, the
// translations of the window, and what desktops are told.

#include "lib/ui/strings_table.h"
#include "tests/packaging/shipped_languages.h"
#include "tests/support/environment.h"
#include "tests/support/program.h"
#include "tests/support/translation_file.h"

#include <gtest/gtest.h>

#include <QLocale>
#include <QString>

#include <algorithm>
#include <regex>
#include <set>
#include <string>
#include <string_view>
#include <vector>

using test::languages;
using test::languagesButEnglish;
using test::languagesOf;
using test::pathOf;
using test::Translation;
using test::translationsIn;

namespace {
std::string builtFile(const std::string& inBuild)
{
    return test::readFile(PINORAMA_BUILD_FOLDER "/" + inBuild);
}

std::vector<std::string> allMatches(const std::string& text, const std::string& pattern)
{
    const std::regex regex(pattern, std::regex::ECMAScript | std::regex::multiline);
    std::vector<std::string> found;
    for (std::sregex_iterator match(text.begin(), text.end(), regex), end; match != end; ++match)
        found.push_back((*match)[match->size() - 1]);
    return found;
}

// Placeholders stand in another order in some languages.
std::vector<std::string> sorted(std::vector<std::string> texts)
{
    std::sort(texts.begin(), texts.end());
    return texts;
}

std::string utf8(std::u16string_view text)
{
    return QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size())).toStdString();
}

// The texts of `key` that a desktop file has: how often in each language, "" for none given.
std::multiset<std::string> languagesOfKey(const std::string& document, const std::string& key)
{
    std::multiset<std::string> names;
    for (const std::string& name : allMatches(document, "^" + key + "(?:\\[([^\\]]*)\\])?=."))
        names.insert(name);
    return names;
}

// The languages of the elements with this name in an XML document, one for each element with a
// text.
std::multiset<std::string> languagesOfElement(const std::string& document,
                                              const std::string& element)
{
    const auto names = allMatches(document, "<" + element + " xml:lang=\"([^\"]*)\">[^<]");
    return {names.begin(), names.end()};
}

// Expects of one text, or one form of it, what must be as in English.
void expectSameSigns(const std::string& source, const std::string& text)
{
    EXPECT_NE(text, "");
    EXPECT_EQ(sorted(allMatches(text, "(%[0-9]+)")), sorted(allMatches(source, "(%[0-9]+)")));
    EXPECT_EQ(allMatches(text, "(&)").size(), allMatches(source, "(&)").size());
    EXPECT_EQ(allMatches(text, "(\\(\\*\\.[^)]*\\))"), allMatches(source, "(\\(\\*\\.[^)]*\\))"));
    const std::string bare = std::regex_replace(text, std::regex("\\(&.\\)"), "");
    for (const char* ending : {":", "…", "."}) {
        const bool inSource = QString::fromStdString(source).endsWith(QString::fromUtf8(ending));
        // The full stop and the colon have wide forms in Chinese and Japanese.
        const QString end = QString::fromStdString(bare).right(1);
        const bool inText = end == QString::fromUtf8(ending) ||
                            (ending[0] == ':' && end == QString::fromUtf8("：")) ||
                            (ending[0] == '.' && end == QString::fromUtf8("。"));
        EXPECT_EQ(inText, inSource) << "ends with another sign than " << ending;
    }
    EXPECT_EQ(text, QString::fromStdString(text).trimmed().toStdString());
}
}  // namespace

TEST(languages, areAtLeastThoseOfTheManual)
{
    for (const char* language :
         {"ar", "cs", "de", "en",    "es", "fr", "he", "hu", "it",    "ja",
          "ko", "nl", "pl", "pt_BR", "ru", "sv", "tr", "uk", "zh_CN", "zh_TW"})
        EXPECT_TRUE(languages().contains(language)) << language;
}

TEST(languages, haveTablesWithTheSameKeysAndConversions)
{
    for (const std::string name : {"Localizable", "GPS", "Places"}) {
        const auto textOf = [&](const std::string& language) {
            return builtFile("resources/strings/" + language + "/" + name + ".strings");
        };
        const std::string english = textOf("en");
        const auto keys = allMatches(english, "^\"([^\"]+)\" = ");
        const StringsTable original(english);
        ASSERT_GE(keys.size(), 6u);
        ASSERT_EQ(original.size(), keys.size());
        for (const std::string& language : languages()) {
            SCOPED_TRACE(language + "/" + name);
            const StringsTable table(textOf(language));
            EXPECT_EQ(table.damagedLines(), std::vector<std::size_t>());
            EXPECT_EQ(table.size(), keys.size());
            for (const std::string& key : keys) {
                const std::u16string wide(key.begin(), key.end());
                const auto text = table.find(wide);
                EXPECT_TRUE(text && !text->empty()) << key << " is missing";
                if (!text) continue;
                const std::string conversion = "%[0-9.]*[^0-9.]";
                EXPECT_EQ(allMatches(utf8(*text), "(" + conversion + ")"),
                          allMatches(utf8(*original.find(wide)), "(" + conversion + ")"))
                    << key << " has other conversions than in English";
            }
        }
    }
}

TEST(languages, haveATranslationOfTheWindow)
{
    // That of English has only the plural forms of the texts in the code.
    EXPECT_EQ(languagesOf("app/translations", "pinorama_"), languages());
}

TEST(languages, haveEveryTextOfTheTablesAndTheDesktop)
{
    const test::TemporaryFolder folder;
    const std::string fresh = folder.file("fresh.ts");
    const test::ProgramResult lupdate =
        test::runProgram({.command = {PINORAMA_LUPDATE, "-silent",
                                      PINORAMA_BUILD_FOLDER "/texts.cpp", "-ts", fresh}});
    ASSERT_EQ(lupdate.status, 0) << lupdate.err;
    const auto sourcesOf = [](const std::vector<Translation>& all) {
        std::vector<std::string> sources;
        for (const Translation& one : all) sources.push_back(one.source);
        return sorted(sources);
    };
    const auto expected = translationsIn(fresh);
    ASSERT_GE(expected.size(), 157u);
    for (const Translation& one : expected)
        EXPECT_NE(one.comment, "") << one.source << ": a translator cannot know where it stands";

    for (const std::string& language : languagesButEnglish()) {
        SCOPED_TRACE(language);
        const auto all = translationsIn(pathOf("resources/texts/texts_" + language + ".ts"));
        EXPECT_EQ(sourcesOf(all), sourcesOf(expected));
        for (const Translation& one : all) {
            const std::string& text = one.forms.front();
            EXPECT_TRUE(one.isFinished && !text.empty()) << one.source;
            EXPECT_EQ(sorted(allMatches(text, "(\\{[^}]*\\})")),
                      sorted(allMatches(one.source, "(\\{[^}]*\\})")));
            EXPECT_EQ(one.source.ends_with(';'), text.ends_with(';')) << one.source;
            EXPECT_EQ(text.find("://"), std::string::npos) << "no address is translated";
        }
    }
}

TEST(languages, areLedToTheirOwnWikipedia)
{
    for (const std::string& language : languages()) {
        SCOPED_TRACE(language);
        const StringsTable services(builtFile("resources/strings/" + language + "/GPS.strings"));
        const auto wikipedia = services.find(u"b7");
        ASSERT_TRUE(wikipedia);
        EXPECT_TRUE(utf8(*wikipedia).starts_with("https://" + language.substr(0, 2) + ".wiki"));
        const auto picture = services.find(u"picture"), bing = services.find(u"b3");
        ASSERT_TRUE(picture && bing);
        EXPECT_TRUE(std::regex_match(utf8(*picture), std::regex("[A-Za-z]+"))) << "in an address";
        EXPECT_NE(utf8(*bing).find("_" + utf8(*picture) + "&"), std::string::npos);
    }
}

TEST(languages, keepPlaceholdersKeysAndEndingsOfTheWindow)
{
    for (const std::string& language : languages()) {
        const std::string path = "app/translations/pinorama_" + language + ".ts";
        SCOPED_TRACE(path);
        const auto all = translationsIn(pathOf(path));
        EXPECT_GE(all.size(), language == "en" ? 6u : 40u);
        for (const Translation& one : all) {
            SCOPED_TRACE(one.source);
            EXPECT_TRUE(one.isFinished);
            for (const std::string& form : one.forms) {
                expectSameSigns(one.source, form);
                if (!one.hasPlural) continue;
                // A form for one number alone may have a word for it; all others have the number.
                const auto numbers = allMatches(form, "(%L?n)");
                EXPECT_TRUE(numbers.empty() || numbers == allMatches(one.source, "(%L?n)")) << form;
            }
        }
    }
}

// A view that has only a text, and no window around it, reads it in the direction of its first
// letter.
TEST(languages, beginEveryTextWithAWordOfTheirOwnIfTheyAreReadFromRightToLeft)
{
    int read = 0;
    for (const std::string& language : languagesButEnglish()) {
        if (QLocale(QString::fromStdString(language)).textDirection() != Qt::RightToLeft) continue;
        ++read;
        for (const char* file : {"app/translations/pinorama_", "resources/texts/texts_"}) {
            for (const Translation& one : translationsIn(pathOf(file + language + ".ts"))) {
                const bool isDistance = one.source == "%1 m %2" || one.source == "%1 km %2";
                for (const std::string& form : one.forms) {
                    const std::string own =
                        std::regex_replace(form, std::regex("\\{[a-z]+\\}|%L?[a-z0-9.]"), "");
                    const bool isOwn = own.find_first_of("\xd6\xd7\xd8\xd9") != own.npos;
                    EXPECT_EQ(QString::fromStdString(own).isRightToLeft(), isOwn) << form;
                    EXPECT_TRUE(isDistance || !form.starts_with("%1")) << form;
                }
            }
        }
    }
    EXPECT_EQ(read, 2);
}

TEST(languages, areAllInTheDesktopEntryAndTheMenus)
{
    std::multiset<std::string> once = {""};
    for (const std::string& language : languagesButEnglish()) once.insert(language);

    const std::string entry = builtFile("packaging/org.pinorama.Pinorama.desktop");
    EXPECT_EQ(languagesOfKey(entry, "GenericName"), once);
    EXPECT_EQ(languagesOfKey(entry, "Comment"), once);
    EXPECT_EQ(languagesOfKey(entry, "Keywords"), once);
    // The program's name needs none; the actions that are shown have one.
    std::multiset<std::string> names = {""};
    const auto actions = allMatches(entry, "^(\\[Desktop Action .*)$");
    for (std::size_t i = 0; i < actions.size(); ++i) names.insert(once.begin(), once.end());
    EXPECT_EQ(languagesOfKey(entry, "Name"), names);

    const struct {
        const char *path, *key;
    } rows[] = {
        {"pinorama-dolphin.desktop", "Name"},    {"pinorama-actions.desktop", "Name"},
        {"pinorama-actions.desktop", "Tooltip"}, {"pinorama-thunar.desktop", "Comment"},
        {"pinorama.nemo_action", "Name"},        {"pinorama.nemo_action", "Comment"},
    };
    for (const auto& [path, key] : rows) {
        EXPECT_EQ(languagesOfKey(builtFile(std::string("packaging/menus/") + path), key), once)
            << path << ", " << key;
    }
}

TEST(languages, areAllInTheTypes)
{
    std::multiset<std::string> each;
    for (const std::string& language : languagesButEnglish())
        for (int i = 0; i < 3; ++i) each.insert(language);
    EXPECT_EQ(languagesOfElement(builtFile("packaging/pinorama-mime.xml"), "comment"), each);
}

TEST(languages, areAllInTheMetainfo)
{
    const std::string metainfo = builtFile("packaging/org.pinorama.Pinorama.metainfo.xml");
    // The name of the program needs no translation, that of its makers does.
    const struct {
        const char* element;
        std::size_t untranslated, least;
    } rows[] = {{"summary", 0, 1}, {"p", 0, 4}, {"li", 0, 10}, {"name", 1, 1}};
    for (const auto& [element, untranslated, least] : rows) {
        SCOPED_TRACE(element);
        const auto english = allMatches(metainfo, std::string("<") + element + "(>)").size();
        ASSERT_GE(english, untranslated + least);
        std::multiset<std::string> each;
        for (const std::string& language : languagesButEnglish()) {
            for (std::size_t i = untranslated; i < english; ++i)
                each.insert(std::regex_replace(language, std::regex("_"), "-"));
        }
        EXPECT_EQ(languagesOfElement(metainfo, element), each);
    }
    // English paragraphs go on over several lines; so they are found without their line breaks.
    EXPECT_NE(metainfo.find("<p xml:lang=\"de\">Pinorama hält"), std::string::npos);
}
