// The translations of the window against its texts as they are now.

#include "app/translations.h"
#include "tests/support/environment.h"
#include "tests/support/program.h"
#include "tests/support/toolkit.h"
#include "tests/support/translation_file.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QGuiApplication>

#include <algorithm>
#include <map>
#include <string>
#include <vector>

using namespace pinorama;
using test::Translation;

namespace {
const auto* const toolkit = testing::AddGlobalTestEnvironment(new test::Toolkit);

const std::string kTranslations = PINORAMA_APP_SOURCES "/translations/";
const std::string kEnglish = "pinorama_en.ts";

std::vector<std::string> translationFiles()
{
    std::vector<std::string> names;
    for (const QString& name :
         QDir(QString::fromStdString(kTranslations)).entryList({QStringLiteral("*.ts")}))
        names.push_back(name.toStdString());
    return names;
}

// The texts of the window as its sources have them now, with as many empty plural forms as the
// language has: one file in `folder` for each of the files, by its name.
void writeFreshFiles(const test::TemporaryFolder& folder, const std::vector<std::string>& files)
{
    std::vector<std::string> command = {
        PINORAMA_LUPDATE, "-silent", "-I", PINORAMA_APP_SOURCES "/..", PINORAMA_APP_SOURCES, "-ts"};
    for (const std::string& file : files) {
        const std::string language = test::languageOfTranslations(kTranslations + file);
        command.push_back(folder.write(
            file, "<!DOCTYPE TS>\n<TS version=\"2.1\" language=\"" + language + "\"></TS>\n"));
    }
    const test::ProgramResult lupdate = test::runProgram({.command = command});
    ASSERT_EQ(lupdate.status, 0) << lupdate.err;
}

std::map<std::string, Translation> byText(const std::vector<Translation>& all)
{
    std::map<std::string, Translation> texts;
    for (const Translation& one : all) texts[one.context + ": " + one.source] = one;
    return texts;
}
}  // namespace

TEST(translations, everyTextOfTheWindowHasOneInEveryLanguage)
{
    const test::TemporaryFolder folder;
    const auto files = translationFiles();
    ASSERT_TRUE(std::ranges::find(files, "pinorama_de.ts") != files.end());
    ASSERT_TRUE(std::ranges::find(files, kEnglish) != files.end());
    ASSERT_NO_FATAL_FAILURE(writeFreshFiles(folder, files));
    for (const std::string& file : files) {
        SCOPED_TRACE(file);
        auto texts = byText(test::translationsIn(folder.file(file)));
        ASSERT_GT(texts.size(), 30u);
        for (const auto& [text, one] : texts)
            EXPECT_NE(one.comment, "") << text << ": a translator cannot know where it stands";
        // The texts of the code are English; only their plural forms are not in it.
        if (file == kEnglish)
            std::erase_if(texts, [](const auto& text) { return !text.second.hasPlural; });
        const auto known = byText(test::translationsIn(kTranslations + file));
        for (const auto& [text, one] : texts) {
            SCOPED_TRACE(text);
            const auto found = known.find(text);
            ASSERT_TRUE(found != known.end()) << "has no translation";
            EXPECT_TRUE(found->second.isFinished);
            EXPECT_EQ(found->second.hasPlural, one.hasPlural);
            EXPECT_EQ(found->second.forms.size(), one.forms.size()) << "the forms of the language";
            for (const std::string& form : found->second.forms) EXPECT_NE(form, "");
        }
        for (const auto& [text, one] : known)
            EXPECT_TRUE(texts.contains(text)) << "is no text any more: " << text;
    }
}

// One that stands for two texts has mostly slipped into a wrong place.
TEST(translations, haveOtherWordsForEveryText)
{
    const auto words = [](std::string text) {
        std::erase(text, '&');  // of a mnemonic
        return text;
    };
    for (const std::string& file : translationFiles()) {
        std::map<std::string, std::string> sources;  // by their translations
        for (const Translation& one : test::translationsIn(kTranslations + file)) {
            const std::string source = words(one.source);
            const auto known = sources.emplace(words(one.forms.front()), source).first;
            // Turkish opens a file and switches a lamp on with the same word.
            const bool isOneWord =
                file == "pinorama_tr.ts" && (source == "Switch On" || source == "Open");
            EXPECT_TRUE(known->second == source || isOneWord)
                << file << ": " << known->first << ": " << known->second << ", " << source;
        }
    }
}

TEST(installTranslations, followsTheLanguagesOfTheTexts)
{
    const auto greeting = [] {
        return QCoreApplication::translate("pinorama::MainWindow", "&Picture");
    };
    {
        const test::ScopedVariable english("LANGUAGE", "en:de");
        installTranslations();
        EXPECT_EQ(greeting(), QLatin1String("&Picture"));
    }
    {
        const test::ScopedVariable austrian("LANGUAGE", "xx:de_AT");
        installTranslations();
        EXPECT_EQ(greeting(), QLatin1String("&Bild"));
    }
}

TEST(installTranslations, mirrorsTheWindowForLanguagesFromRightToLeft)
{
    const struct {
        const char* languages;
        Qt::LayoutDirection direction;
    } rows[] = {{"ar", Qt::RightToLeft},
                {"de", Qt::LeftToRight},
                {"he_IL", Qt::RightToLeft},
                {"fa:en", Qt::LeftToRight},  // there are no texts in Persian
                {"en:ar", Qt::LeftToRight}};
    for (const auto& [languages, direction] : rows) {
        SCOPED_TRACE(languages);
        const test::ScopedVariable variable("LANGUAGE", languages);
        installTranslations();
        EXPECT_EQ(QGuiApplication::layoutDirection(), direction);
    }
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
}
