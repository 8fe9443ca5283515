// What the window says when accessibility must be switched on, and how little of it there is when
// it need not.

#include "app/accessibility_notice.h"

#include "selection/accessibility_advice.h"
#include "tests/app/controller_fixture.h"
#include "tests/support/toolkit.h"

#include <QAccessible>
#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTranslator>

#include <set>

using namespace pinorama;

namespace {

class AccessibilityNoticeTest : public test::ControllerTest {
protected:
    void SetUp() override
    {
        ControllerTest::SetUp();
        controller.syncCheckbox->setChecked(true);
        offerAccessibility(advice, controller);
        controller.showMainWindow();
        QCoreApplication::processEvents();
    }

    AccessibilityNotice* notice() { return window()->findChild<AccessibilityNotice*>(); }
    MainWindow* window() { return controller.myWindow; }
    template <typename Child>
    Child* part(const char* name)
    {
        return window()->findChild<Child*>(QString::fromLatin1(name));
    }
    std::string words()
    {
        const auto* label = part<QLabel>("accessibilityNoticeWords");
        return label == nullptr ? std::string() : label->text().toStdString();
    }
    QPushButton* switchButton() { return part<QPushButton>("switchAccessibilityButton"); }
    QPushButton* dismissButton() { return part<QPushButton>("accessibilityNoticeDismissButton"); }

    // There is no session bus here: nothing is found out, and nothing can be switched on.
    AccessibilityAdvice advice;
};

// Where everything in the window is.
std::vector<QRect> placesIn(const QWidget* window)
{
    std::vector<QRect> places = {QRect(QPoint(), window->size())};
    for (const QWidget* view : window->findChildren<QWidget*>())
        if (view->isVisible()) places.push_back(view->geometry());
    return places;
}
}  // namespace

TEST_F(AccessibilityNoticeTest, isNotThereUntilItIsNeeded)
{
    EXPECT_EQ(notice(), nullptr);
    const int gap =
        window()->centralWidget()->height() - controller.syncCheckbox->geometry().bottom();
    EXPECT_LT(gap, 20) << "nothing keeps a place for it";
}

TEST_F(AccessibilityNoticeTest, saysPlainlyWhatToDo)
{
    Q_EMIT advice.needed(QStringLiteral("PCManFM-Qt"));
    ASSERT_NE(notice(), nullptr);
    EXPECT_TRUE(test::waitUntil([this] { return notice()->isVisible(); }));
    EXPECT_EQ(
        words(),
        "Pinorama can follow the selection in PCManFM-Qt once accessibility is on. This is "
        "a permanent setting of your desktop; restart the file manager after switching it on.");
    EXPECT_EQ(notice()->window(), window()) << "in the window, no dialog";
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_GT(notice()->geometry().top(), controller.syncCheckbox->geometry().bottom());
    EXPECT_TRUE(test::waitUntil([this] {
        return notice()->height() < 8 * notice()->fontMetrics().lineSpacing();
    })) << "takes no more room than its words";
}

TEST_F(AccessibilityNoticeTest, asksBeforeAnythingIsSwitchedOn)
{
    int requests = 0;
    AccessibilityNotice shown(QStringLiteral("Dolphin"));
    QObject::connect(&shown, &AccessibilityNotice::switchWanted, [&requests] { requests++; });
    shown.show();
    QCoreApplication::processEvents();
    EXPECT_EQ(requests, 0);
    auto* button = shown.findChild<QPushButton*>(QStringLiteral("switchAccessibilityButton"));
    button->click();
    button->click();
    EXPECT_EQ(requests, 1);
}

TEST_F(AccessibilityNoticeTest, tellsToRestartTheFileManagerOnceItIsOn)
{
    Q_EMIT advice.needed(QStringLiteral("Dolphin"));
    Q_EMIT advice.switched(true);
    EXPECT_EQ(words(),
              "Accessibility is on. Restart Dolphin or log in again; Pinorama then follows its "
              "selection.");
    EXPECT_TRUE(switchButton()->isHidden());
    EXPECT_FALSE(dismissButton()->isHidden());
}

TEST_F(AccessibilityNoticeTest, saysWhenItCouldNotBeSwitchedOn)
{
    Q_EMIT advice.needed(QStringLiteral("Dolphin"));
    switchButton()->click();  // there is no bus to ask
    EXPECT_TRUE(test::waitUntil([this] { return switchButton()->isHidden(); }));
    EXPECT_EQ(words(),
              "Accessibility could not be switched on. The manual explains how to do it by hand.");
}

TEST_F(AccessibilityNoticeTest, leavesTheWindowAsItWas)
{
    window()->resize(700, 750);  // room for it as well
    QCoreApplication::processEvents();
    const auto before = placesIn(window());
    Q_EMIT advice.needed(QStringLiteral("Dolphin"));
    EXPECT_TRUE(test::waitUntil([this] { return notice()->isVisible(); }));
    EXPECT_NE(placesIn(window()), before);
    dismissButton()->click();
    EXPECT_TRUE(test::waitUntil([&] { return placesIn(window()) == before; }));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(notice(), nullptr);
}

TEST_F(AccessibilityNoticeTest, comesAndGoesWithTheCheckBox)
{
    Q_EMIT advice.needed(QStringLiteral("Dolphin"));
    EXPECT_TRUE(test::waitUntil([this] { return notice()->isVisible(); }));
    controller.syncCheckbox->setChecked(false);
    EXPECT_FALSE(notice()->isVisible());
    controller.syncCheckbox->setChecked(true);
    EXPECT_TRUE(notice()->isVisible());
}

TEST_F(AccessibilityNoticeTest, isReachedWithTheKeyboardAndTakesNoFocus)
{
    QWidget* focus = window()->focusWidget();
    Q_EMIT advice.needed(QStringLiteral("Dolphin"));
    EXPECT_TRUE(test::waitUntil([this] { return notice()->isVisible(); }));
    EXPECT_EQ(window()->focusWidget(), focus);
    controller.syncCheckbox->setFocus();
    std::vector<QWidget*> next;
    for (int i = 0; i < 2; i++) {
        QTest::keyClick(window()->focusWidget(), Qt::Key_Tab);
        next.push_back(window()->focusWidget());
    }
    EXPECT_EQ(next, (std::vector<QWidget*>{switchButton(), dismissButton()}));
    Q_EMIT advice.switched(true);
    EXPECT_EQ(window()->focusWidget(), dismissButton());
    QTest::keyClick(dismissButton(), Qt::Key_Space);
    EXPECT_FALSE(notice()->isVisible());
}

TEST_F(AccessibilityNoticeTest, hasItsWordsAsItsNameForAScreenReader)
{
    Q_EMIT advice.needed(QStringLiteral("Dolphin"));
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(notice());
    ASSERT_NE(interface, nullptr);
    EXPECT_EQ(interface->text(QAccessible::Name).toStdString(), words());
    Q_EMIT advice.switched(true);
    EXPECT_EQ(interface->text(QAccessible::Name).toStdString(), words());
    for (QPushButton* button : {switchButton(), dismissButton()})
        EXPECT_FALSE(
            QAccessible::queryAccessibleInterface(button)->text(QAccessible::Name).isEmpty());
}

TEST_F(AccessibilityNoticeTest, showsAllItsWordsInEveryLanguage)
{
    QStringList files = test::translations();
    ASSERT_GE(files.size(), 9);
    for (const QString& file : files) {
        SCOPED_TRACE(file.toStdString());
        QTranslator translator;
        ASSERT_TRUE(translator.load(QStringLiteral(":/i18n/") + file));
        QCoreApplication::installTranslator(&translator);
        AppController translated;
        AccessibilityAdvice needed;
        offerAccessibility(needed, translated);
        translated.showMainWindow();
        translated.syncCheckbox->setChecked(true);
        Q_EMIT needed.needed(QStringLiteral("PCManFM-Qt"));
        translated.myWindow->resize(translated.myWindow->minimumSize());
        const auto* label =
            translated.myWindow->findChild<QLabel*>(QStringLiteral("accessibilityNoticeWords"));
        ASSERT_NE(label, nullptr);
        EXPECT_FALSE(label->text().startsWith(QLatin1String("The selection")));
        EXPECT_TRUE(test::waitUntil([&] {
            return label->isVisible() && label->height() == label->heightForWidth(label->width());
        })) << label->height()
            << " of " << label->heightForWidth(label->width());

        std::set<QChar> keys;
        for (const QAbstractButton* button :
             translated.myWindow->findChildren<QAbstractButton*>()) {
            if (button->objectName().startsWith(QLatin1String("qt_")) || button->text().isEmpty())
                continue;
            EXPECT_GE(button->width(), button->minimumSizeHint().width());
            const QString text = button->text();
            const qsizetype at = text.indexOf(u'&');
            ASSERT_GE(at, 0) << text.toStdString();
            EXPECT_TRUE(keys.insert(text.at(at + 1).toLower()).second) << text.toStdString();
        }
        for (const QAction* menu : translated.myWindow->menuBar()->actions()) {
            const QString text = menu->text();
            EXPECT_TRUE(keys.insert(text.at(text.indexOf(u'&') + 1).toLower()).second)
                << text.toStdString();
        }
        QCoreApplication::removeTranslator(&translator);
    }
}
