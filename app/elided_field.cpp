#include "app/elided_field.h"

#include "app/leading_edge.h"
#include "app/shown_text.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QFocusEvent>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFrame>
#include <QToolTip>

#include <algorithm>

namespace pinorama {
namespace {
// QLineEdit keeps this distance to its frame on the left and on the right.
constexpr int kLineMargin = 2;
// It also leaves room for a caret after a text that stands on the right.
constexpr int kCaretRoom = 2;
}  // namespace

ElidedField::ElidedField(QWidget* parent) : QLineEdit(parent)
{
    setReadOnly(true);
    setFrame(false);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setAcceptDrops(false);  // a drop is for the window
    setAutoFillBackground(false);
    setBackgroundRole(QPalette::Window);

    QPalette seeThrough;
    seeThrough.setBrush(QPalette::Base, Qt::NoBrush);
    setPalette(seeThrough);

    // A line may be cleared and set in other ways too.
    connect(this, &QLineEdit::textChanged, this, [this](const QString& shown) {
        if (shown != shown_) text_ = shown_ = shown;
    });
    alignText();
}

void ElidedField::setText(const QString& text)
{
    isSentence_ = false;
    text_ = text;
    shown_ = shownText(text);
    QLineEdit::setText(shown_);
}

void ElidedField::setSentence(const QString& words)
{
    isSentence_ = true;
    text_ = withoutIsolation(words);
    shown_ = words;
    QLineEdit::setText(shown_);
}

QSize ElidedField::sizeHint() const
{
    // The words in an empty line are not to be cut.
    const int words = fontMetrics().horizontalAdvance(placeholderText()) + 2 * kLineMargin;
    return {std::max(fontMetrics().averageCharWidth() * 36, words), fontMetrics().height()};
}

QSize ElidedField::minimumSizeHint() const
{
    return {fontMetrics().averageCharWidth() * 16, fontMetrics().height()};
}

bool ElidedField::event(QEvent* event)
{
    if (event->type() == QEvent::ToolTip && !toolTip().isEmpty()) {
        // Markup in a file name is part of the name.
        const QString shown = QLatin1String("<p style='white-space:pre-wrap'>") +
                              shownToolTip().toHtmlEscaped() + QLatin1String("</p>");
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), shown, this);
        return true;
    }
    // With nothing to copy here the key is the window's.
    if (event->type() == QEvent::ShortcutOverride && !hasSelectedText() &&
        static_cast<QKeyEvent*>(event)->matches(QKeySequence::Copy)) {
        event->ignore();
        return false;
    }
    return QLineEdit::event(event);
}

void ElidedField::changeEvent(QEvent* event)
{
    QLineEdit::changeEvent(event);
    if (event->type() == QEvent::StyleChange) cancelMarginsOfStyle();
    if (event->type() == QEvent::LayoutDirectionChange) {
        alignText();
        cancelMarginsOfStyle();
    }
}

void ElidedField::contextMenuEvent(QContextMenuEvent* event)
{
    QMenu* menu = createStandardContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    // Of a line that cannot be changed the first item copies.
    if (QAction* copy = menu->actions().value(0)) {
        copy->disconnect(this);
        connect(copy, &QAction::triggered, this, &ElidedField::copySelection);
    }
    menu->popup(event->globalPos());
}

void ElidedField::keyPressEvent(QKeyEvent* event)
{
    if (!event->matches(QKeySequence::Copy)) return QLineEdit::keyPressEvent(event);
    copySelection();
    event->accept();
}

// The text that the mouse has selected is there for the middle button.
void ElidedField::mouseReleaseEvent(QMouseEvent* event)
{
    QLineEdit::mouseReleaseEvent(event);
    QClipboard* clipboard = QGuiApplication::clipboard();
    if (isSentence_ && hasSelectedText() && clipboard->supportsSelection())
        clipboard->setText(copiedText(), QClipboard::Selection);
}

void ElidedField::paintEvent(QPaintEvent* event)
{
    const QRect place = textRect();
    const bool fits = fontMetrics().horizontalAdvance(displayText()) <= place.width();
    if (hasFocus() || fits || hasSelectedText()) {
        QLineEdit::paintEvent(event);
        return;
    }
    const Qt::TextFlag direction =
        displayText().isRightToLeft() ? Qt::TextForceRightToLeft : Qt::TextForceLeftToRight;
    QPainter painter(this);
    painter.setFont(font());
    style()->drawItemText(
        &painter, place, (leadingEdge(*this) | Qt::AlignVCenter).toInt() | direction, palette(),
        isEnabled(), fontMetrics().elidedText(displayText(), Qt::ElideMiddle, place.width()),
        QPalette::Text);
}

void ElidedField::focusOutEvent(QFocusEvent* event)
{
    QLineEdit::focusOutEvent(event);
    // The context menu takes the focus for a moment and works on the selection.
    if (event->reason() == Qt::PopupFocusReason || event->reason() == Qt::ActiveWindowFocusReason)
        return;
    deselect();
    setCursorPosition(0);
}

void ElidedField::resizeEvent(QResizeEvent* event)
{
    QLineEdit::resizeEvent(event);
    cancelMarginsOfStyle();
}

// Without it a line stands where its own direction of reading begins.
void ElidedField::alignText()
{
    setAlignment(leadingEdge(*this) | Qt::AlignVCenter);
}

// Some styles keep the room of a frame free around a line that has none. The text would be cut off
// below, and stand further to the right than the texts under it.
void ElidedField::cancelMarginsOfStyle()
{
    QStyleOptionFrame option;
    initStyleOption(&option);
    const QRect whole = option.rect;
    const QRect kept = style()->subElementRect(QStyle::SE_LineEditContents, &option, this);
    const QMargins margins(whole.left() - kept.left(), whole.top() - kept.top(),
                           kept.right() - whole.right() - (isRightToLeft() ? kCaretRoom : 0),
                           kept.bottom() - whole.bottom());
    if (margins != textMargins()) setTextMargins(margins);
}

// What is selected, as it was set.
QString ElidedField::copiedText() const
{
    if (selectedText() == QLineEdit::text()) return text_;
    return isSentence_ ? withoutIsolation(selectedText()) : selectedText();
}

void ElidedField::copySelection() const
{
    if (hasSelectedText()) QGuiApplication::clipboard()->setText(copiedText());
}

// Of a line with a file's name it is the path.
QString ElidedField::shownToolTip() const
{
    return isSentence_ ? toolTip() : isolatedPath(shownText(toolTip()));
}

QRect ElidedField::textRect() const
{
    return rect().adjusted(kLineMargin, 0, -kLineMargin, 0);
}

}  // namespace pinorama
