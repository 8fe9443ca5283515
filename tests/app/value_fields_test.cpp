// The fields of the window by themselves: what they show of a text, and that all of it can be
// copied.

#include "app/elided_field.h"
#include "app/pop_up_menu.h"
#include "app/shown_text.h"
#include "app/wrapped_field.h"
#include "tests/support/toolkit.h"

#include <gtest/gtest.h>
#include <QAbstractItemView>
#include <QAccessible>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QProxyStyle>
#include <QScrollBar>
#include <QSignalSpy>
#include <QStyleOptionComboBox>
#include <QTextBlock>
#include <QTextLayout>
#include <QToolTip>
#include <QVBoxLayout>
#include <QWheelEvent>

using namespace pinorama;

namespace {
void press(QWidget* widget, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QKeyEvent down(QEvent::KeyPress, key, modifiers);
    QCoreApplication::sendEvent(widget, &down);
    QKeyEvent up(QEvent::KeyRelease, key, modifiers);
    QCoreApplication::sendEvent(widget, &up);
}

// Keeps room for a frame around the text of every line, even of one without a frame.
class RoomyStyle : public QProxyStyle {
public:
    QRect subElementRect(SubElement element, const QStyleOption* option,
                         const QWidget* widget) const override
    {
        const QRect place = QProxyStyle::subElementRect(element, option, widget);
        return element == SE_LineEditContents ? place.adjusted(8, 6, -9, -3) : place;
    }
};

// A window of a given width with one field and something else to have the focus.
template <typename Field>
class FieldWindow {
public:
    explicit FieldWindow(int width)
    {
        auto* layout = new QVBoxLayout(&window);
        layout->setContentsMargins(0, 0, 0, 0);
        field = new Field;
        layout->addWidget(field);
        other = new QLineEdit;
        layout->addWidget(other);
        window.resize(width, 100);
        other->setFocus();
        window.show();
        window.activateWindow();
        QCoreApplication::processEvents();
    }

    QWidget window;
    Field* field;
    QLineEdit* other;
};

std::u16string shownText(QWidget* field)
{
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(field);
    QAccessibleTextInterface* text = interface != nullptr ? interface->textInterface() : nullptr;
    return text != nullptr ? text->text(0, text->characterCount()).toStdU16String() : u"none";
}
}  // namespace

TEST(WrappedField, isAsHighAsItsText)
{
    FieldWindow<WrappedField> window(200);
    const int oneLine = window.field->height();
    window.field->setText(
        QStringLiteral("several words that need more than one line of the field"));
    QCoreApplication::processEvents();
    EXPECT_GE(window.field->height(), 2 * oneLine - 2);
    EXPECT_FALSE(window.field->verticalScrollBar()->isVisible());
    window.field->setText(QStringLiteral("x"));
    QCoreApplication::processEvents();
    EXPECT_EQ(window.field->height(), oneLine);
}

TEST(WrappedField, wrapsInTheMiddleOfAWordWithoutBlanks)
{
    FieldWindow<WrappedField> window(200);
    const int oneLine = window.field->height();
    window.field->setText(QString(60, QLatin1Char('W')));
    QCoreApplication::processEvents();
    EXPECT_GE(window.field->height(), 2 * oneLine - 2);
    EXPECT_EQ(window.field->horizontalScrollBar()->maximum(), 0);
}

TEST(WrappedField, followsTheWidthOfItsWindow)
{
    FieldWindow<WrappedField> window(600);
    window.field->setText(
        QStringLiteral("several words that need more than one line of the field"));
    QCoreApplication::processEvents();
    const int wide = window.field->height();
    window.window.resize(150, 100);
    QCoreApplication::processEvents();
    EXPECT_GT(window.field->height(), wide);
    EXPECT_GE(window.window.height(), window.field->height() + window.other->height())
        << "the window grows with it";
}

// At some of the widths the last word has only just no room in the line before.
TEST(WrappedField, isAsHighAsItsTextAtEveryWidth)
{
    QWidget window;
    auto* field = new WrappedField(&window);
    field->setMaximumLines(100);
    field->setText(QStringLiteral("21 June 2026, 12:00 (Central European Summer Time)"));
    window.show();
    for (int width = 60; width < 460; ++width) {
        field->resize(width, field->height());
        const int lines = field->document()->firstBlock().layout()->lineCount();
        EXPECT_EQ(field->minimumHeight(), lines * field->fontMetrics().lineSpacing() + 1) << width;
    }
}

TEST(WrappedField, scrollsBeyondItsLines)
{
    FieldWindow<WrappedField> window(200);
    window.field->setMaximumLines(3);
    window.field->setText(QStringLiteral("word ").repeated(200));
    QCoreApplication::processEvents();
    EXPECT_LE(window.field->height(), 3 * window.field->fontMetrics().lineSpacing() + 1);
    EXPECT_TRUE(window.field->verticalScrollBar()->isVisible());
    EXPECT_GT(window.field->verticalScrollBar()->maximum(), 0);
}

TEST(WrappedField, isLaidOutInEveryWidth)
{
    for (const bool isHugging : {false, true}) {
        FieldWindow<WrappedField> window(200);
        window.field->setHugging(isHugging);
        window.field->setMaximumLines(4);
        for (const char* text : {"192.5", "some words", "WWWWWWWWWWWWWWWWWWWWWWWW", ""}) {
            window.field->setText(QString::fromLatin1(text));
            for (int width = 0; width < 60; width++) {
                window.field->resize(width, 20);
                window.field->setMinimumWidth(width);
                window.field->setMaximumWidth(width);
                QCoreApplication::processEvents();
            }
            EXPECT_LE(window.field->minimumHeight(),
                      4 * window.field->fontMetrics().lineSpacing() + 1);
        }
    }
}

TEST(WrappedField, aVeryLongTextIsNoBurden)
{
    FieldWindow<WrappedField> window(200);
    window.field->setText(QStringLiteral("x\n").repeated(20000));
    EXPECT_TRUE(test::waitUntil([&] { return window.field->verticalScrollBar()->isVisible(); }));
}

TEST(WrappedField, isReadAndCopiedWithTheKeyboard)
{
    FieldWindow<WrappedField> window(200);
    window.field->setText(QStringLiteral("N 48\u00b0"));
    window.field->setFocus(Qt::TabFocusReason);
    press(window.field, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("N 48\u00b0"));
    press(window.field, Qt::Key_X);
    press(window.field, Qt::Key_Delete);
    EXPECT_EQ(window.field->text(), QStringLiteral("N 48\u00b0")) << "nothing is changed";
    window.field->clearFocus();
    EXPECT_FALSE(window.field->textCursor().hasSelection());
}

TEST(WrappedField, showsNoMoreThanAMaximumOfItsText)
{
    FieldWindow<WrappedField> window(200);
    const QString text = QStringLiteral("a\u05d0").repeated(32000);
    window.field->setText(text);
    EXPECT_EQ(window.field->toPlainText(), shownText(text));
    EXPECT_LT(window.field->toPlainText().size(), 2100);
    EXPECT_EQ(window.field->text(), text);
}

TEST(WrappedField, givesItsWholeTextToTheClipboard)
{
    FieldWindow<WrappedField> window(200);
    const QString text = QStringLiteral("word ").repeated(13000);
    window.field->setText(text);
    window.field->setFocus(Qt::TabFocusReason);
    press(window.field, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), text);

    QTextCursor firstWord(window.field->document());
    firstWord.setPosition(4, QTextCursor::KeepAnchor);
    window.field->setTextCursor(firstWord);
    press(window.field, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("word"));
}

TEST(WrappedField, isATextToAScreenReader)
{
    FieldWindow<WrappedField> window(200);
    window.field->setText(QStringLiteral("Rome"));
    EXPECT_EQ(shownText(window.field), u"Rome");
    window.field->setText(QString());
    EXPECT_EQ(shownText(window.field), u"");
}

TEST(ElidedField, showsBothEndsOfALongName)
{
    FieldWindow<ElidedField> window(200);
    const QString name =
        QStringLiteral("begin") + QString(200, QLatin1Char('x')) + QStringLiteral("end.jpg");
    window.field->setText(name);
    QCoreApplication::processEvents();
    const QImage elided = window.field->grab().toImage();

    // The same picture as that of the text that is elided by hand.
    const int width = window.field->width() - 4;
    window.field->setText(window.field->fontMetrics().elidedText(name, Qt::ElideMiddle, width));
    EXPECT_TRUE(window.field->text().endsWith(QLatin1String("end.jpg")));
    EXPECT_TRUE(window.field->text().startsWith(QLatin1String("begin")));
    window.field->setCursorPosition(0);
    EXPECT_EQ(elided, window.field->grab().toImage());
}

TEST(ElidedField, looksTheSameInAStyleThatKeepsRoomForAFrame)
{
    RoomyStyle roomy;  // which outlives the window
    FieldWindow<ElidedField> window(400);
    for (const QString& name : {QStringLiteral("\u00c5gpj.jpg"), QString(200, QLatin1Char('g'))}) {
        SCOPED_TRACE(name.toStdString());
        window.field->setStyle(nullptr);
        window.field->setText(name);
        QCoreApplication::processEvents();
        const QImage usual = window.field->grab().toImage();
        window.field->setStyle(&roomy);
        QCoreApplication::processEvents();
        EXPECT_EQ(window.field->grab().toImage(), usual);
        window.field->resize(window.field->width() - 3, window.field->height());
        window.field->resize(window.field->width() + 3, window.field->height());
        EXPECT_EQ(window.field->grab().toImage(), usual);
        window.field->setStyle(nullptr);
        EXPECT_EQ(window.field->grab().toImage(), usual);
    }
}

TEST(ElidedField, givesItsWholeTextToTheClipboardAndTheScreenReader)
{
    FieldWindow<ElidedField> window(200);
    const QString name = QString(200, QLatin1Char('x')) + QStringLiteral(".jpg");
    window.field->setText(name);
    EXPECT_EQ(shownText(window.field), name.toStdU16String());
    window.field->setFocus(Qt::TabFocusReason);
    press(window.field, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), name);
    window.field->clearFocus();
    EXPECT_FALSE(window.field->hasSelectedText());
    EXPECT_EQ(window.field->cursorPosition(), 0);
}

TEST(ElidedField, showsNoMoreThanAMaximumOfItsText)
{
    FieldWindow<ElidedField> window(200);
    const QString text = QStringLiteral("a\u05d0").repeated(32000);
    window.field->setText(text);
    EXPECT_EQ(window.field->displayText(), shownText(text));
    EXPECT_LT(window.field->displayText().size(), 2100);
    EXPECT_EQ(window.field->text(), text);

    window.field->selectAll();
    press(window.field, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), text);
    window.field->setSelection(0, 2);
    press(window.field, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), text.first(2));
}

TEST(ElidedField, hasTheTextThatItWasGivenAsALine)
{
    ElidedField field;
    QLineEdit* line = &field;
    field.setText(QStringLiteral("x").repeated(5000));
    line->clear();
    EXPECT_EQ(field.text(), QString());
    line->setText(QStringLiteral("Rome"));
    EXPECT_EQ(field.text(), QStringLiteral("Rome"));
}

TEST(ElidedField, copiesItsWholeTextFromTheContextMenu)
{
    FieldWindow<ElidedField> window(200);
    const QString text = QStringLiteral("x").repeated(5000);
    window.field->setText(text);
    window.field->selectAll();
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(5, 5), QPoint(5, 5));
    QCoreApplication::sendEvent(window.field, &event);
    const auto* menu = window.field->findChild<QMenu*>();
    ASSERT_NE(menu, nullptr);
    QAction* copy = menu->actions().value(0);
    EXPECT_TRUE(copy->text().contains(QLatin1String("Copy")));
    QGuiApplication::clipboard()->clear();
    copy->trigger();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), text);
    for (QMenu* open : window.field->findChildren<QMenu*>()) open->close();
}

TEST(ElidedField, cutsItsToolTipForShowing)
{
    FieldWindow<ElidedField> window(200);
    const QString path = QLatin1Char('/') + QStringLiteral("a\u05d0").repeated(32000);
    window.field->setToolTip(path);
    QHelpEvent event(QEvent::ToolTip, QPoint(5, 5), window.field->mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(window.field, &event);
    EXPECT_LT(QToolTip::text().size(), 2200);
    EXPECT_TRUE(QToolTip::text().contains(shownText(path).mid(1)));
    EXPECT_EQ(window.field->toolTip(), path);
    QToolTip::hideText();
}

TEST(ElidedField, hasAPathInItsToolTipInTheOrderOfTheFolders)
{
    FieldWindow<ElidedField> window(200);
    window.field->setToolTip(QStringLiteral("/\u05d0/\u05d1/c.jpg"));
    QHelpEvent event(QEvent::ToolTip, QPoint(5, 5), window.field->mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(window.field, &event);
    EXPECT_TRUE(QToolTip::text().contains(
        QStringLiteral("\u2066/\u2068\u05d0\u2069/\u2068\u05d1\u2069/c.jpg\u2069")))
        << QToolTip::text().toStdString();
    QToolTip::hideText();
}

TEST(PopUpMenu, isWideEnoughForItsTitle)
{
    PopUpMenu menu;
    menu.setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    menu.setMinimumContentsLength(3);
    menu.addItems({QStringLiteral("The Services of Maps"), QStringLiteral("b")});
    menu.resize(menu.minimumSizeHint());
    QStyleOptionComboBox option;
    option.initFrom(&menu);
    const QRect title = menu.style()->subControlRect(QStyle::CC_ComboBox, &option,
                                                     QStyle::SC_ComboBoxEditField, &menu);
    EXPECT_GE(title.width(), menu.fontMetrics().horizontalAdvance(menu.itemText(0)));
}

TEST(PopUpMenu, opensItsListInsteadOfWalkingThroughCommands)
{
    PopUpMenu menu;
    menu.addItems({QStringLiteral("Title"), QStringLiteral("One"), QStringLiteral("Two")});
    menu.makeFirstItemTheTitle();
    QSignalSpy chosen(&menu, &PopUpMenu::chosen);
    menu.show();
    for (const int key : {Qt::Key_T, Qt::Key_O, Qt::Key_PageDown, Qt::Key_End}) press(&menu, key);
    QWheelEvent wheel(QPointF(5, 5), menu.mapToGlobal(QPointF(5, 5)), QPoint(), QPoint(0, -120),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&menu, &wheel);
    EXPECT_EQ(chosen.count(), 0);
    EXPECT_EQ(menu.currentIndex(), 0);

    for (const int key : {Qt::Key_Space, Qt::Key_Down, Qt::Key_Up, Qt::Key_Return, Qt::Key_F4}) {
        press(&menu, key);
        EXPECT_TRUE(menu.view()->isVisible());
        menu.hidePopup();
    }
    EXPECT_EQ(chosen.count(), 0);
}

TEST(PopUpMenu, itsTitleIsNoCommandAndStays)
{
    PopUpMenu menu;
    menu.addItems({QStringLiteral("Title"), QStringLiteral("One")});
    menu.makeFirstItemTheTitle();
    EXPECT_FALSE(menu.model()->flags(menu.model()->index(0, 0)).testFlag(Qt::ItemIsEnabled));
    QSignalSpy chosen(&menu, &PopUpMenu::chosen);
    menu.setCurrentIndex(1);
    Q_EMIT menu.activated(1);
    ASSERT_EQ(chosen.count(), 1);
    EXPECT_EQ(chosen.at(0).at(0).toInt(), 1);
    EXPECT_EQ(menu.currentIndex(), 0);
}
