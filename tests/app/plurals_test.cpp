// The texts of the window that have a number in them, in the forms of every language.

#include "app/translations.h"
#include "tests/support/environment.h"
#include "tests/support/toolkit.h"
#include "tests/support/translation_file.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QLocale>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

using namespace pinorama;
using test::Translation;

namespace {
constexpr int kMost = 200;  // no language has a rule that needs more

std::vector<std::string> languages()
{
    std::vector<std::string> names;
    const QDir folder(QStringLiteral(PINORAMA_APP_SOURCES "/translations"));
    for (const QString& file : folder.entryList({QStringLiteral("pinorama_*.ts")}))
        names.push_back(file.section(QLatin1Char('_'), 1).chopped(3).toStdString());
    return names;
}

std::vector<Translation> textsWithNumbers(const std::string& language)
{
    auto all =
        test::translationsIn(PINORAMA_APP_SOURCES "/translations/pinorama_" + language + ".ts");
    std::erase_if(all, [](const Translation& one) { return !one.hasPlural; });
    return all;
}

// The text with this number in it, in the language that was installed last.
std::string textOf(const std::string& context, const std::string& source, int number)
{
    return QCoreApplication::translate(context.c_str(), source.c_str(), nullptr, number)
        .toStdString();
}

std::string foundText(int number)
{
    return textOf("pinorama::NearbyWindow", "%Ln picture(s) found", number);
}

std::string without(const std::string& number, const std::string& text)
{
    const std::size_t at = text.find(number);
    return at == std::string::npos ? text : std::string(text).replace(at, number.size(), "#");
}

class plurals : public testing::Test {
protected:
    plurals() { QLocale::setDefault(QLocale(QStringLiteral("en_US"))); }
    ~plurals() override { QLocale::setDefault(before_); }

private:
    QLocale before_;
};
}  // namespace

TEST_F(plurals, areThoseOfTheLanguage)
{
    const struct {
        const char *language, *one, *two, *five, *twentyOne;
    } rows[] = {
        {"en", "1 picture found", "2 pictures found", "5 pictures found", "21 pictures found"},
        {"de", "1 Bild gefunden", "2 Bilder gefunden", "5 Bilder gefunden", "21 Bilder gefunden"},
        {"fr", "1 photo trouvée", "2 photos trouvées", "5 photos trouvées", "21 photos trouvées"},
        {"es", "1 foto encontrada", "2 fotos encontradas", "5 fotos encontradas",
         "21 fotos encontradas"},
        {"it", "1 foto trovata", "2 foto trovate", "5 foto trovate", "21 foto trovate"},
        {"pt_BR", "1 foto encontrada", "2 fotos encontradas", "5 fotos encontradas",
         "21 fotos encontradas"},
        {"nl", "1 foto gevonden", "2 foto’s gevonden", "5 foto’s gevonden", "21 foto’s gevonden"},
        {"sv", "1 bild hittad", "2 bilder hittade", "5 bilder hittade", "21 bilder hittade"},
        {"cs", "Nalezen 1 snímek", "Nalezeny 2 snímky", "Nalezeno 5 snímků", "Nalezeno 21 snímků"},
        {"pl", "Znaleziono 1 zdjęcie", "Znaleziono 2 zdjęcia", "Znaleziono 5 zdjęć",
         "Znaleziono 21 zdjęć"},
        {"ru", "Найден 1 снимок", "Найдено 2 снимка", "Найдено 5 снимков", "Найден 21 снимок"},
        {"uk", "Знайдено 1 знімок", "Знайдено 2 знімки", "Знайдено 5 знімків",
         "Знайдено 21 знімок"},
        {"hu", "1 talált kép", "2 talált kép", "5 talált kép", "21 talált kép"},
        {"tr", "1 resim bulundu", "2 resim bulundu", "5 resim bulundu", "21 resim bulundu"},
        {"ja", "1 枚の写真が見つかりました", "2 枚の写真が見つかりました",
         "5 枚の写真が見つかりました", "21 枚の写真が見つかりました"},
        {"ko", "사진 1장을 찾았습니다", "사진 2장을 찾았습니다", "사진 5장을 찾았습니다",
         "사진 21장을 찾았습니다"},
        {"zh_CN", "找到 1 张照片", "找到 2 张照片", "找到 5 张照片", "找到 21 张照片"},
        {"zh_TW", "找到 1 張相片", "找到 2 張相片", "找到 5 張相片", "找到 21 張相片"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.language);
        const test::ScopedVariable language("LANGUAGE", row.language);
        installTranslations();
        EXPECT_EQ(foundText(1), row.one);
        EXPECT_EQ(foundText(2), row.two);
        EXPECT_EQ(foundText(5), row.five);
        EXPECT_EQ(foundText(21), row.twentyOne);
    }
}

TEST_F(plurals, haveTheNumberInThem)
{
    for (const std::string& language : languages()) {
        const test::ScopedVariable variable("LANGUAGE", language.c_str());
        installTranslations();
        const auto texts = textsWithNumbers(language);
        ASSERT_GE(texts.size(), 6u) << language;
        for (const auto& [context, source, comment, forms, hasPlural, isFinished] : texts) {
            SCOPED_TRACE(language + ": " + source);
            std::multiset<std::string> all;
            for (int number = 0; number <= kMost; ++number)
                all.insert(textOf(context, source, number));
            for (const int number : {1, 2, 5, 21}) {
                const std::string text = textOf(context, source, number);
                // Some languages have a word for this very number, such as a dual.
                const bool isSaid = text.find(std::to_string(number)) != std::string::npos;
                EXPECT_TRUE(isSaid || all.count(text) == 1) << text;
            }
        }
    }
}

TEST_F(plurals, differWhereTheLanguageDoes)
{
    for (const std::string& language : languages()) {
        const test::ScopedVariable variable("LANGUAGE", language.c_str());
        installTranslations();
        for (const auto& [context, source, comment, forms, hasPlural, isFinished] :
             textsWithNumbers(language)) {
            SCOPED_TRACE(language + ": " + source);
            std::set<std::string> words;
            for (int number = 0; number <= kMost; ++number)
                words.insert(without(std::to_string(number), textOf(context, source, number)));
            const std::set<std::string> different(forms.begin(), forms.end());
            EXPECT_EQ(words.size(), different.size()) << "a form is never used";
            EXPECT_EQ(words.size() > 1, forms.size() > 1) << "all forms are one";
        }
    }
}

TEST_F(plurals, writeNumbersAsTheLocaleDoes)
{
    const test::ScopedVariable variable("LANGUAGE", "de");
    installTranslations();
    QLocale::setDefault(QLocale(QStringLiteral("de_DE")));
    EXPECT_EQ(foundText(12345), "12.345 Bilder gefunden");
    QLocale::setDefault(QLocale(QStringLiteral("en_US")));
    EXPECT_EQ(foundText(12345), "12,345 Bilder gefunden");
}
