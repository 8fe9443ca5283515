#include "lib/ui/view_texts.h"

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMetaObject>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextEdit>
#include <QToolButton>

namespace {
ViewTextSetter gReplacedSetter;

const QMenu* menuOfButton(const QWidget* view)
{
    if (const auto* push = qobject_cast<const QPushButton*>(view)) return push->menu();
    if (const auto* tool = qobject_cast<const QToolButton*>(view)) return tool->menu();
    return nullptr;
}

std::optional<QString> itemText(const QWidget* view, int item)
{
    if (const auto* box = qobject_cast<const QComboBox*>(view)) return box->itemText(item);
    if (const QMenu* menu = menuOfButton(view)) return menu->actions().value(item)->text();
    return std::nullopt;
}

std::optional<QString> titleText(const QWidget* view)
{
    if (const auto* box = qobject_cast<const QGroupBox*>(view)) return box->title();
    if (const auto* button = qobject_cast<const QAbstractButton*>(view)) return button->text();
    return std::nullopt;
}

std::optional<QString> placeholderText(const QWidget* view)
{
    if (const auto* line = qobject_cast<const QLineEdit*>(view)) return line->placeholderText();
    if (const auto* plain = qobject_cast<const QPlainTextEdit*>(view))
        return plain->placeholderText();
    if (const auto* rich = qobject_cast<const QTextEdit*>(view)) return rich->placeholderText();
    return std::nullopt;
}

// A field for text may have a property of its own for its text, for instance to show it otherwise
// than it is. Null unless it does; a line always has one.
const char* textProperty(const QWidget* view)
{
    const bool isLine = qobject_cast<const QLineEdit*>(view) != nullptr;
    const bool isPlain = qobject_cast<const QPlainTextEdit*>(view) != nullptr;
    if (!isLine && !isPlain) return nullptr;
    return view->metaObject()->indexOfProperty("text") >= 0 ? "text" : nullptr;
}

std::optional<QString> valueText(const QWidget* view)
{
    if (const auto* label = qobject_cast<const QLabel*>(view)) return label->text();
    if (const char* property = textProperty(view)) return view->property(property).toString();
    if (const auto* plain = qobject_cast<const QPlainTextEdit*>(view)) return plain->toPlainText();
    if (const auto* rich = qobject_cast<const QTextEdit*>(view)) return rich->toPlainText();
    if (const auto* button = qobject_cast<const QAbstractButton*>(view)) return button->text();
    return std::nullopt;
}

void setItemText(QWidget* view, int item, const QString& text)
{
    if (auto* box = qobject_cast<QComboBox*>(view)) {
        box->setItemText(item, text);
    } else if (const QMenu* menu = menuOfButton(view)) {
        menu->actions().value(item)->setText(text);
    }
}

void setTitleText(QWidget* view, const QString& text)
{
    if (auto* box = qobject_cast<QGroupBox*>(view)) {
        box->setTitle(text);
    } else if (auto* button = qobject_cast<QAbstractButton*>(view)) {
        button->setText(text);
    }
}

void setPlaceholderText(QWidget* view, const QString& text)
{
    if (auto* line = qobject_cast<QLineEdit*>(view)) {
        line->setPlaceholderText(text);
    } else if (auto* plain = qobject_cast<QPlainTextEdit*>(view)) {
        plain->setPlaceholderText(text);
    } else if (auto* rich = qobject_cast<QTextEdit*>(view)) {
        rich->setPlaceholderText(text);
    }
}

void setValueText(QWidget* view, const QString& text)
{
    if (auto* label = qobject_cast<QLabel*>(view)) {
        label->setText(text);
    } else if (const char* property = textProperty(view)) {
        view->setProperty(property, text);
        if (auto* line = qobject_cast<QLineEdit*>(view)) line->setCursorPosition(0);
    } else if (auto* plain = qobject_cast<QPlainTextEdit*>(view)) {
        plain->setPlainText(text);
    } else if (auto* rich = qobject_cast<QTextEdit*>(view)) {
        rich->setPlainText(text);
    } else if (auto* button = qobject_cast<QAbstractButton*>(view)) {
        button->setText(text);
    }
}
}  // namespace

std::optional<int> cuPopUpItemCount(const QWidget* view)
{
    if (const auto* box = qobject_cast<const QComboBox*>(view)) return box->count();
    if (const QMenu* menu = menuOfButton(view)) return static_cast<int>(menu->actions().size());
    return std::nullopt;
}

std::optional<QString> cuViewText(const QWidget* view, ViewText kind, int item)
{
    switch (kind) {
    case ViewText::toolTip: return view->toolTip();
    case ViewText::item: return itemText(view, item);
    case ViewText::placeholder: return placeholderText(view);
    case ViewText::title: return titleText(view);
    case ViewText::value: return valueText(view);
    }
    return std::nullopt;
}

void cuSetViewText(QWidget* view, ViewText kind, int item, const QString& text)
{
    if (gReplacedSetter) {
        gReplacedSetter(view, kind, item, text);
        return;
    }
    switch (kind) {
    case ViewText::toolTip: view->setToolTip(text); break;
    case ViewText::item: setItemText(view, item, text); break;
    case ViewText::placeholder: setPlaceholderText(view, text); break;
    case ViewText::title: setTitleText(view, text); break;
    case ViewText::value: setValueText(view, text); break;
    }
}

void cuReplaceViewTextSetter(ViewTextSetter setter)
{
    gReplacedSetter = std::move(setter);
}
