// The texts of all languages against each other: the tables that the programs read, the
// translations of the window, and what desktops are told.

#include "app/elided_field.h"
#include "app/main_window.h"
#include "app/pop_up_menu.h"
#include "app/translations.h"
#include "lib/ui/strings_table.h"
#include "tests/support/environment.h"
#include "tests/support/toolkit.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QMenuBar>
#include <QStyleOptionComboBox>
#include <QXmlStreamReader>

#include <algorithm>
#include <regex>
#include <set>
#include <string>
#include <string_view>
#include <vector>

using namespace pinorama;

namespace {
const auto* const toolkit = testing::AddGlobalTestEnvironment(new test::Toolkit);

std::string pathOf(const std::string& inTree)
{
    return PINORAMA_SOURCE_FOLDER "/" + inTree;
}

// The languages that have tables; English is the one that the others are measured by.
std::set<std::string> languages()
{
    std::set<std::string> names;
    for (const QString& name : QDir(QString::fromStdString(pathOf("resources/strings")))
                                   .entryList(QDir::Dirs | QDir::NoDotAndDotDot))
        names.insert(name.toStdString());
    return names;
}

std::set<std::string> languagesButEnglish()
{
    auto names = languages();
    names.erase("en");
    return names;
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

struct Translation {
    std::string source, text;
};

// The texts of a .ts file in its order.
std::vector<Translation> translationsIn(const std::string& path)
{
    std::vector<Translation> all;
    QFile file(QString::fromStdString(path));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path;
    QXmlStreamReader xml(&file);
    std::string source;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement) continue;
        if (xml.name() == QLatin1String("source")) source = xml.readElementText().toStdString();
        if (xml.name() == QLatin1String("translation")) {
            EXPECT_FALSE(xml.attributes().hasAttribute(QLatin1String("type")))
                << path << ": " << source << " is unfinished";
            all.push_back({source, xml.readElementText().toStdString()});
        }
    }
    EXPECT_FALSE(xml.hasError()) << path;
    return all;
}

// What stands after the '&' of a text; 0 for none.
char16_t mnemonicOf(const QString& text)
{
    const qsizetype at = text.indexOf(QLatin1Char('&'));
    return at < 0 ? u'\0' : text.at(at + 1).toLower().unicode();
}

// The texts of `key` that a desktop file has: how often in each language, "" for none given.
std::multiset<std::string> languagesOfKey(const std::string& document, const std::string& key)
{
    std::multiset<std::string> names;
    for (const std::string& name : allMatches(document, "^" + key + "(?:\\[([^\\]]*)\\])?=."))
        names.insert(name);
    return names;
}
}  // namespace

TEST(languages, areAtLeastTheTenOfTheManual)
{
    for (const char* language : {"de", "en", "es", "fr", "it", "ja", "nl", "pl", "pt_BR", "zh_CN"})
        EXPECT_TRUE(languages().contains(language)) << language;
}

TEST(languages, haveTablesWithTheSameKeysAndConversions)
{
    for (const std::string name : {"Localizable", "GPS", "Places"}) {
        const auto textOf = [&](const std::string& language) {
            return test::readFile(
                pathOf("resources/strings/" + language + "/" + name + ".strings"));
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
    std::set<std::string> names;
    for (const QString& file : QDir(QString::fromStdString(pathOf("app/translations")))
                                   .entryList({QStringLiteral("pinorama_*.ts")}))
        names.insert(file.toStdString().substr(9, file.toStdString().size() - 12));
    EXPECT_EQ(names, languagesButEnglish());
}

TEST(languages, keepPlaceholdersKeysAndEndingsOfTheWindow)
{
    for (const std::string& language : languagesButEnglish()) {
        const std::string path = "app/translations/pinorama_" + language + ".ts";
        SCOPED_TRACE(path);
        const auto all = translationsIn(pathOf(path));
        EXPECT_GE(all.size(), 40u);
        for (const auto& [source, text] : all) {
            SCOPED_TRACE(source);
            EXPECT_NE(text, "");
            EXPECT_EQ(sorted(allMatches(text, "(%[0-9]+)")),
                      sorted(allMatches(source, "(%[0-9]+)")));
            EXPECT_EQ(allMatches(text, "(&)").size(), allMatches(source, "(&)").size());
            EXPECT_EQ(allMatches(text, "(\\(\\*\\.[^)]*\\))"),
                      allMatches(source, "(\\(\\*\\.[^)]*\\))"));
            const std::string bare = std::regex_replace(text, std::regex("\\(&.\\)"), "");
            for (const char* ending : {":", "…", "."}) {
                const bool inSource =
                    QString::fromStdString(source).endsWith(QString::fromUtf8(ending));
                // The full stop and the colon have wide forms in Chinese and Japanese.
                const QString end = QString::fromStdString(bare).right(1);
                const bool inText = end == QString::fromUtf8(ending) ||
                                    (ending[0] == ':' && end == QString::fromUtf8("：")) ||
                                    (ending[0] == '.' && end == QString::fromUtf8("。"));
                EXPECT_EQ(inText, inSource) << "ends with another sign than " << ending;
            }
            EXPECT_EQ(text, QString::fromStdString(text).trimmed().toStdString());
        }
    }
}

TEST(languages, openEveryMenuAndControlWithAKeyOfItsOwn)
{
    for (const std::string& language : languages()) {
        SCOPED_TRACE(language);
        const test::ScopedVariable variable("LANGUAGE", language.c_str());
        installTranslations();
        const MainWindow window;
        if (language != "en") {
            EXPECT_NE(window.exportKMLButton->text(), QString::fromUtf8("&Export as KML…"));
        }
        std::set<char16_t> ofWindow;
        const auto expectNew = [](std::set<char16_t>& used, const QString& text) {
            const char16_t key = mnemonicOf(text);
            EXPECT_NE(key, u'\0') << text.toStdString();
            EXPECT_TRUE(used.insert(key).second) << text.toStdString();
        };
        for (const QAction* menu : window.menuBar()->actions()) {
            expectNew(ofWindow, menu->text());
            std::set<char16_t> ofMenu;
            for (const QAction* action : menu->menu()->actions())
                if (!action->isSeparator()) expectNew(ofMenu, action->text());
        }
        for (const QAbstractButton* button : std::initializer_list<const QAbstractButton*>{
                 window.showInGEButton, window.searchInTovButton, window.exportKMLButton,
                 window.syncCheckbox})
            expectNew(ofWindow, button->text());
    }
}

TEST(languages, areNotCutInTheWindow)
{
    for (const std::string& language : languages()) {
        SCOPED_TRACE(language);
        const test::ScopedVariable variable("LANGUAGE", language.c_str());
        installTranslations();
        MainWindow window;
        window.show();
        ASSERT_TRUE(test::waitUntil([&window] { return window.isVisible(); }));
        QStyleOptionComboBox option;
        option.initFrom(window.webServicesMenu);
        const QRect title = window.style()->subControlRect(
            QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, window.webServicesMenu);
        EXPECT_GE(title.width(), window.webServicesMenu->fontMetrics().horizontalAdvance(
                                     window.webServicesMenu->itemText(0)));
        for (const QWidget* control :
             std::initializer_list<const QWidget*>{window.showInGEButton, window.searchInTovButton,
                                                   window.exportKMLButton, window.syncCheckbox})
            EXPECT_GE(control->width(), control->sizeHint().width());
        const QLineEdit* name = window.fileNameField;
        const int words = name->fontMetrics().horizontalAdvance(name->placeholderText());
        EXPECT_GT(name->width(), words);
        EXPECT_GT(name->sizeHint().width(), words) << "with any other font";
        for (const QLabel* caption : window.findChildren<QLabel*>()) {
            if (caption->isVisible() && !caption->wordWrap()) {
                EXPECT_GE(caption->width(), caption->sizeHint().width())
                    << caption->text().toStdString();
            }
        }
        for (QMenu* menu : {window.pictureMenu, window.helpMenu}) {
            const int natural = menu->sizeHint().width();
            for (int opening = 0; opening < 2; ++opening) {
                menu->popup(QPoint());
                EXPECT_EQ(menu->width(),
                          natural + menu->fontMetrics().horizontalAdvance(QLatin1Char('&')))
                    << "the style counts the sign before a mnemonic";
                menu->close();
            }
        }
    }
}

TEST(languages, areAllInTheDesktopEntryAndTheMenus)
{
    std::multiset<std::string> once = {""};
    for (const std::string& language : languagesButEnglish()) once.insert(language);
    std::multiset<std::string> twice = once;
    twice.insert(once.begin(), once.end());

    const std::string entry = test::readFile(pathOf("packaging/org.pinorama.Pinorama.desktop.in"));
    EXPECT_EQ(languagesOfKey(entry, "GenericName"), once);
    EXPECT_EQ(languagesOfKey(entry, "Comment"), once);
    EXPECT_EQ(languagesOfKey(entry, "Keywords"), once);
    // The program's name needs none; both its actions have one.
    twice.insert("");
    EXPECT_EQ(languagesOfKey(entry, "Name"), twice);

    const struct {
        const char *path, *key;
    } rows[] = {
        {"pinorama-dolphin.desktop", "Name"},    {"pinorama-actions.desktop", "Name"},
        {"pinorama-actions.desktop", "Tooltip"}, {"pinorama-thunar.desktop", "Comment"},
        {"pinorama.nemo_action", "Name"},        {"pinorama.nemo_action", "Comment"},
    };
    for (const auto& [path, key] : rows) {
        EXPECT_EQ(languagesOfKey(test::readFile(pathOf("packaging/menus/") + path), key), once)
            << path << ", " << key;
    }
}

TEST(languages, areAllInTheMetainfoAndTheTypes)
{
    std::multiset<std::string> once;
    for (const std::string& language : languagesButEnglish())
        once.insert(std::regex_replace(language, std::regex("_"), "-"));
    std::multiset<std::string> ofTypes;
    for (const std::string& language : languagesButEnglish())
        for (int i = 0; i < 3; ++i) ofTypes.insert(language);

    const auto found = [](const std::string& path, const std::string& element) {
        const auto names =
            allMatches(test::readFile(pathOf(path)), "<" + element + " xml:lang=\"([^\"]*)\">[^<]");
        return std::multiset<std::string>(names.begin(), names.end());
    };
    EXPECT_EQ(found("packaging/org.pinorama.Pinorama.metainfo.xml.in", "summary"), once);
    EXPECT_EQ(found("packaging/pinorama-mime.xml", "comment"), ofTypes);
}
