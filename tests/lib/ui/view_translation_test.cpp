#include "lib/ui/cocoa_utils.h"
#include "lib/ui/view_texts.h"
#include "tests/lib/ui/translated_window.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QPixmap>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTextBrowser>
#include <QTextEdit>
#include <QToolButton>
#include <QVBoxLayout>

#include <stdexcept>
#include <vector>

using namespace pinorama;

namespace {
QString key(int table, int index)
{
    return QStringLiteral("STR#%1:%2").arg(table).arg(index);
}

using translateOneView = test::TranslatedWindow;
using translateWindow = test::TranslatedWindow;
}  // namespace

TEST_F(translateOneView, translatesEachKindOfView)
{
    auto* label = add<QLabel>(QStringLiteral("##5"));
    auto* button = add<QPushButton>(QStringLiteral("+#12"));
    auto* tool = add<QToolButton>();
    tool->setText(QStringLiteral("##1"));
    auto* plain = add<QPlainTextEdit>(QStringLiteral("##5"));
    auto* rich = add<QTextEdit>(QStringLiteral("##5"));
    auto* fixed = add<QLabel>(QStringLiteral("Fixed"));
    auto* shortLabel = add<QLabel>(QStringLiteral("##"));
    auto* noNumber = add<QLabel>(QStringLiteral("##abc"));
    translate();
    EXPECT_EQ(label->text(), QLatin1String("five"));
    EXPECT_EQ(button->text(), QLatin1String("twelve"));
    EXPECT_EQ(tool->text(), QLatin1String("one"));
    EXPECT_EQ(plain->toPlainText(), QLatin1String("five"));
    EXPECT_EQ(rich->toPlainText(), QLatin1String("five"));
    EXPECT_EQ(fixed->text(), QLatin1String("Fixed"));
    EXPECT_EQ(shortLabel->text(), QLatin1String("##"));
    EXPECT_EQ(noNumber->text(), QLatin1String("##abc"));
}

TEST_F(translateOneView, aFieldHasItsPlaceholderAndItsTextReplaced)
{
    auto* line = add<QLineEdit>(QStringLiteral("+#3"));
    line->setPlaceholderText(QStringLiteral("##4"));
    auto* plain = add<QPlainTextEdit>();
    plain->setPlaceholderText(QStringLiteral("##5"));
    auto* rich = add<QTextEdit>();
    rich->setPlaceholderText(QStringLiteral("##1"));
    translate();
    EXPECT_EQ(line->text(), key(1001, 3));
    EXPECT_EQ(line->placeholderText(), key(1100, 4));
    EXPECT_EQ(plain->placeholderText(), QLatin1String("five"));
    EXPECT_EQ(plain->toPlainText(), QString());
    EXPECT_EQ(rich->placeholderText(), QLatin1String("one"));
    EXPECT_EQ(rich->toPlainText(), QString());
}

TEST_F(translateOneView, aPopUpHasItsItemsTranslated)
{
    auto* popUp = add<QComboBox>();
    popUp->addItems(
        {QStringLiteral("##1"), QStringLiteral("Fixed"), QString(), QStringLiteral("##2")});
    translate();
    EXPECT_EQ(popUp->itemText(0), QLatin1String("one"));
    EXPECT_EQ(popUp->itemText(1), QLatin1String("Fixed"));
    EXPECT_EQ(popUp->itemText(2), QString());
    EXPECT_EQ(popUp->itemText(3), key(1100, 2));
}

TEST_F(translateOneView, aButtonWithAMenuIsAPopUpWhoseOwnTitleStays)
{
    auto* button = add<QPushButton>(QStringLiteral("##5"));
    auto* menu = new QMenu(button);
    menu->addAction(QStringLiteral("##1"));
    menu->addAction(QStringLiteral("Fixed"));
    button->setMenu(menu);
    translate();
    EXPECT_EQ(button->text(), QLatin1String("##5"));
    EXPECT_EQ(menu->actions().at(0)->text(), QLatin1String("one"));
    EXPECT_EQ(menu->actions().at(1)->text(), QLatin1String("Fixed"));
}

TEST_F(translateOneView, nestedBoxesAreBothTranslated)
{
    auto* outer = add<QGroupBox>(QStringLiteral("##8"));
    auto* inner = new QGroupBox(QStringLiteral("##9"), outer);
    auto* empty = new QGroupBox(outer);
    auto* label = new QLabel(QStringLiteral("##5"), inner);
    translate();
    EXPECT_EQ(outer->title(), key(1100, 8));
    EXPECT_EQ(inner->title(), key(1100, 9));
    EXPECT_EQ(empty->title(), QString());
    EXPECT_EQ(label->text(), QLatin1String("five"));
}

TEST_F(translateOneView, translatesOnlyTheToolTipOfAPicture)
{
    auto* picture = add<QLabel>();
    picture->setPixmap(QPixmap(2, 2));
    picture->setToolTip(QStringLiteral("##5"));
    QStringList set;
    cuReplaceViewTextSetter([&](QWidget* view, ViewText, int, const QString& text) {
        if (view == picture) set << text;
    });
    translate();
    EXPECT_EQ(set, QStringList{QStringLiteral("five")});
}

TEST_F(translateOneView, toolTipsOfAnyView)
{
    auto* plainView = add<QWidget>();
    plainView->setToolTip(QStringLiteral("+#12"));
    auto* label = add<QLabel>(QStringLiteral("x"));
    label->setToolTip(QStringLiteral("OK"));
    translate();
    EXPECT_EQ(plainView->toolTip(), QLatin1String("twelve"));
    EXPECT_EQ(label->toolTip(), QLatin1String("OK"));
}

TEST_F(translateOneView, setsNoTextThatStaysTheSame)
{
    auto* popUp = add<QComboBox>();
    popUp->addItems({QStringLiteral("Fixed"), QStringLiteral("##1")});
    auto* button = add<QPushButton>(QStringLiteral("Fixed"));
    auto* menu = add<QPushButton>(QStringLiteral("Menu"));
    menu->setMenu(new QMenu(menu));
    menu->menu()->addAction(QStringLiteral("Fixed"));
    auto* box = add<QGroupBox>(QStringLiteral("Fixed"));
    auto* label = add<QLabel>(QStringLiteral("Fixed"));
    auto* line = add<QLineEdit>(QStringLiteral("Fixed"));
    auto* plain = add<QPlainTextEdit>(QStringLiteral("Fixed"));
    auto* rich = add<QTextEdit>(QStringLiteral("Fixed"));
    for (QWidget* view : {static_cast<QWidget*>(button), static_cast<QWidget*>(box),
                          static_cast<QWidget*>(label), static_cast<QWidget*>(rich)})
        view->setToolTip(QStringLiteral("Fixed"));
    line->setPlaceholderText(QStringLiteral("Fixed"));
    plain->setPlaceholderText(QStringLiteral("Fixed"));
    QStringList set;
    cuReplaceViewTextSetter([&](QWidget* view, ViewText, int item, const QString& text) {
        set << QString::fromLatin1(view->metaObject()->className()) + QString::number(item) + text;
    });
    translate();
    EXPECT_EQ(set, QStringList{QStringLiteral("QComboBox1one")});
}

TEST_F(translateOneView, keepsTheFormatOfATextThatStaysTheSame)
{
    const QString html = QStringLiteral(
        "Read <a href=\"https://pinorama.example\">the "
        "<b>manual</b></a>");
    auto* browser = add<QTextBrowser>();
    browser->setHtml(html);
    browser->setToolTip(QStringLiteral("<b>bold</b>"));
    auto* rich = add<QTextEdit>();
    rich->setHtml(html);
    auto* label = add<QLabel>(html);
    const QString before = browser->toHtml();
    const QSignalSpy ofBrowser(browser, &QTextEdit::textChanged);
    const QSignalSpy ofRich(rich, &QTextEdit::textChanged);
    translate();
    EXPECT_EQ(browser->toHtml(), before);
    EXPECT_TRUE(before.contains(QLatin1String("href=\"https://pinorama.example\"")));
    EXPECT_EQ(rich->toHtml(), before);
    EXPECT_EQ(label->text(), html);
    EXPECT_EQ(ofBrowser.count() + ofRich.count(), 0);
}

TEST_F(translateOneView, keepsWhatTheUserIsDoingInAText)
{
    auto* line = add<QLineEdit>();
    line->insert(QStringLiteral("typed"));
    line->setSelection(1, 2);
    auto* plain = add<QPlainTextEdit>();
    plain->insertPlainText(QStringLiteral("typed"));
    auto* rich = add<QTextEdit>();
    rich->insertPlainText(QStringLiteral("typed"));
    auto* editable = add<QComboBox>();
    editable->setEditable(true);
    editable->addItems({QStringLiteral("Fixed"), QStringLiteral("Other")});
    editable->setEditText(QStringLiteral("typed"));
    const QSignalSpy ofPlain(plain, &QPlainTextEdit::textChanged);
    const QSignalSpy ofEditable(editable, &QComboBox::editTextChanged);
    const QSignalSpy ofItems(editable->model(), &QAbstractItemModel::dataChanged);
    translate();
    EXPECT_EQ(line->selectedText(), QLatin1String("yp"));
    EXPECT_EQ(line->cursorPosition(), 3);
    EXPECT_TRUE(line->isUndoAvailable());
    EXPECT_EQ(plain->textCursor().position(), 5);
    EXPECT_TRUE(plain->document()->isUndoAvailable());
    EXPECT_EQ(rich->textCursor().position(), 5);
    EXPECT_TRUE(rich->document()->isUndoAvailable());
    EXPECT_EQ(editable->currentText(), QLatin1String("typed"));
    EXPECT_EQ(ofPlain.count() + ofEditable.count() + ofItems.count(), 0);
}

TEST_F(translateOneView, aRefusedTextNeverStopsTheWalk)
{
    auto* box = add<QGroupBox>(QStringLiteral("##8"));
    auto* inBox = new QLabel(QStringLiteral("##5"), box);
    auto* popUp = add<QComboBox>();
    popUp->addItems({QStringLiteral("##1"), QStringLiteral("##2")});
    auto* line = add<QLineEdit>(QStringLiteral("##5"));
    line->setPlaceholderText(QStringLiteral("##5"));
    auto* last = add<QLabel>(QStringLiteral("##5"));
    cuReplaceViewTextSetter([&](QWidget* view, ViewText kind, int item, const QString& text) {
        const bool refused = kind == ViewText::title || kind == ViewText::placeholder ||
                             (kind == ViewText::item && item == 0);
        if (refused) throw std::runtime_error("refused");
        if (kind == ViewText::item) popUp->setItemText(item, text);
        if (kind != ViewText::value) return;
        if (auto* label = qobject_cast<QLabel*>(view)) label->setText(text);
        if (view == line) line->setText(text);
    });
    translate();
    EXPECT_EQ(box->title(), QLatin1String("##8"));
    EXPECT_EQ(inBox->text(), QLatin1String("five"));
    EXPECT_EQ(popUp->itemText(0), QLatin1String("##1"));
    EXPECT_EQ(popUp->itemText(1), key(1100, 2));
    EXPECT_EQ(line->placeholderText(), QLatin1String("##5"));
    EXPECT_EQ(line->text(), QLatin1String("five"));
    EXPECT_EQ(last->text(), QLatin1String("five"));
}

TEST_F(translateOneView, aButtonThatRefusesItsTitleIsTriedAsAControl)
{
    auto* button = add<QPushButton>(QStringLiteral("##5"));
    std::vector<ViewText> kinds;
    cuReplaceViewTextSetter([&](QWidget* view, ViewText kind, int, const QString&) {
        if (view != button) return;
        if (kind != ViewText::toolTip) kinds.push_back(kind);
        if (kind == ViewText::title) throw std::logic_error("refused");
    });
    translate();
    EXPECT_EQ(kinds, (std::vector<ViewText>{ViewText::title, ViewText::value}));
}

TEST_F(translateOneView, anotherKindOfExceptionIsPassedOn)
{
    add<QLabel>(QStringLiteral("##5"));
    cuReplaceViewTextSetter([](QWidget*, ViewText kind, int, const QString&) {
        if (kind == ViewText::value) throw 5;
    });
    EXPECT_THROW(translate(), int);
}

TEST_F(translateOneView, passesOnAnExceptionOfAToolTip)
{
    auto* label = add<QLabel>(QStringLiteral("##5"));
    label->setToolTip(QStringLiteral("##1"));
    cuReplaceViewTextSetter([](QWidget*, ViewText kind, int, const QString& text) {
        if (kind == ViewText::toolTip && !text.isEmpty()) throw std::runtime_error("refused");
    });
    EXPECT_THROW(translate(), std::runtime_error);
}

TEST_F(translateOneView, translatesViewsThatAreAddedDuringTheWalk)
{
    auto* first = add<QLabel>(QStringLiteral("##5"));
    QLabel* late = nullptr;
    cuReplaceViewTextSetter([&](QWidget* view, ViewText kind, int, const QString& text) {
        if (kind != ViewText::value) return;
        qobject_cast<QLabel*>(view)->setText(text);
        if (view == first) late = add<QLabel>(QStringLiteral("##1"));
    });
    translate();
    ASSERT_NE(late, nullptr);
    EXPECT_EQ(late->text(), QLatin1String("one"));
}

TEST_F(translateWindow, keepsTheWindowsTitle)
{
    QMainWindow window;
    window.setWindowTitle(QStringLiteral("##5"));
    auto* central = new QWidget;
    auto* label = new QLabel(QStringLiteral("##5"), central);
    window.setCentralWidget(central);
    for (const std::uint8_t flag : {0, 1}) {
        cocoaUtils::translateWindow(&window, flag);
        EXPECT_EQ(window.windowTitle(), QLatin1String("##5"));
    }
    EXPECT_EQ(label->text(), QLatin1String("five"));
    cocoaUtils::translateWindow(nullptr, 1);
}

TEST_F(translateWindow, leavesWindowsOfItsOwnAlone)
{
    QDialog dialog(&window_);
    auto* label = new QLabel(QStringLiteral("##5"), &dialog);
    translate();
    EXPECT_EQ(label->text(), QLatin1String("##5"));
}
