// The window in each language: its keys, and the room for its texts.

#include "app/elided_field.h"
#include "app/main_window.h"
#include "app/pop_up_menu.h"
#include "app/translations.h"
#include "tests/packaging/shipped_languages.h"
#include "tests/support/environment.h"
#include "tests/support/toolkit.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QMenuBar>
#include <QStyleOptionComboBox>

#include <initializer_list>
#include <set>
#include <string>

using namespace pinorama;

namespace {
using test::languages;

const auto* const toolkit = testing::AddGlobalTestEnvironment(new test::Toolkit);

// What stands after the '&' of a text; 0 for none.
char16_t mnemonicOf(const QString& text)
{
    const qsizetype at = text.indexOf(QLatin1Char('&'));
    return at < 0 ? u'\0' : text.at(at + 1).toLower().unicode();
}
}  // namespace

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
