// The translations of the window against its texts as they are now.

#include "app/translations.h"
#include "tests/support/environment.h"
#include "tests/support/program.h"
#include "tests/support/toolkit.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QXmlStreamReader>

#include <map>
#include <regex>
#include <set>
#include <string>

using namespace pinorama;

namespace {
const auto* const toolkit = testing::AddGlobalTestEnvironment(new test::Toolkit);

// The translation of each text of a .ts file, by context and text; "" for an unfinished one.
std::map<std::string, std::string> translationsIn(const QString& path)
{
    std::map<std::string, std::string> translations;
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    QXmlStreamReader xml(&file);
    std::string context, source;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement) continue;
        if (xml.name() == QLatin1String("name")) context = xml.readElementText().toStdString();
        if (xml.name() == QLatin1String("source")) source = xml.readElementText().toStdString();
        if (xml.name() == QLatin1String("translation")) {
            const bool isFinished = !xml.attributes().hasAttribute(QLatin1String("type"));
            const std::string text = xml.readElementText().toStdString();
            translations[context + ": " + source] = isFinished ? text : "";
        }
    }
    EXPECT_FALSE(xml.hasError()) << path.toStdString();
    return translations;
}
}  // namespace

TEST(translations, everyTextOfTheWindowHasOneInEveryLanguage)
{
    const test::TemporaryFolder folder;
    const std::string fresh = folder.file("fresh.ts");
    const test::ProgramResult lupdate =
        test::runProgram({.command = {PINORAMA_LUPDATE, "-silent", "-I", PINORAMA_APP_SOURCES "/..",
                                      PINORAMA_APP_SOURCES, "-ts", fresh}});
    ASSERT_EQ(lupdate.status, 0) << lupdate.err;
    const auto texts = translationsIn(QString::fromStdString(fresh));
    ASSERT_GT(texts.size(), 30u);
    const std::string document = test::readFile(fresh);
    const std::regex withoutComment("<source>([^<]*)</source>\\s*<translation");
    for (std::sregex_iterator one(document.begin(), document.end(), withoutComment), end;
         one != end; ++one)
        ADD_FAILURE() << (*one)[1] << ": a translator cannot know where it stands";

    const QDir translations(QStringLiteral(PINORAMA_APP_SOURCES "/translations"));
    const QStringList files = translations.entryList({QStringLiteral("*.ts")});
    ASSERT_TRUE(files.contains(QLatin1String("pinorama_de.ts")));
    for (const QString& file : files) {
        const auto known = translationsIn(translations.filePath(file));
        for (const auto& [text, nothing] : texts) {
            const auto found = known.find(text);
            EXPECT_TRUE(found != known.end() && !found->second.empty())
                << file.toStdString() << " has no translation of " << text;
        }
        for (const auto& [text, translation] : known)
            EXPECT_TRUE(texts.contains(text)) << file.toStdString() << " still has " << text;
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
