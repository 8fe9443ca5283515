#include "app/whole_words.h"

#include "app/shown_text.h"

#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>

#include <algorithm>

namespace pinorama {
namespace {
constexpr QChar kLeftToRightMark(0x200e);
constexpr QChar kRightToLeftMark(0x200f);

// The toolkit reads a paragraph in the direction of its first letter, even if that is isolated.
QString inDirection(Qt::LayoutDirection direction, const QString& words)
{
    if (words == withoutIsolation(words)) return words;
    return (direction == Qt::RightToLeft ? kRightToLeftMark : kLeftToRightMark) + words;
}

QString asWritten(QString shown)
{
    if (shown.startsWith(kLeftToRightMark) || shown.startsWith(kRightToLeftMark))
        shown.remove(0, 1);
    return withoutIsolation(shown);
}
}  // namespace

WholeWords::WholeWords(QWidget* parent) : QLabel(parent)
{
    setWordWrap(true);
    setTextFormat(Qt::PlainText);
    setTextInteractionFlags(Qt::TextSelectableByMouse);
}

void WholeWords::say(const QString& words)
{
    setText(inDirection(layoutDirection(), words));
    // Before it is shown it has no width of its own to count lines with.
    if (isVisible()) fit();
}

// The toolkit's menu would copy the words as they are shown.
void WholeWords::contextMenuEvent(QContextMenuEvent* event)
{
    // In the toolkit's words; constants, because they are none of the window's texts.
    constexpr const char* kToolkit = "QWidgetTextControl";
    constexpr const char* kCopy = "&Copy";
    constexpr const char* kSelectAll = "Select All";
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    QAction* copy = menu->addAction(QCoreApplication::translate(kToolkit, kCopy), this,
                                    [this] { copySelection(QClipboard::Clipboard); });
    copy->setEnabled(hasSelectedText());
    menu->addSeparator();
    menu->addAction(QCoreApplication::translate(kToolkit, kSelectAll), this,
                    [this] { setSelection(0, static_cast<int>(text().size())); });
    menu->popup(event->globalPos());
    event->accept();
}

void WholeWords::keyPressEvent(QKeyEvent* event)
{
    if (!event->matches(QKeySequence::Copy)) return QLabel::keyPressEvent(event);
    copySelection(QClipboard::Clipboard);
    event->accept();
}

void WholeWords::mouseReleaseEvent(QMouseEvent* event)
{
    QLabel::mouseReleaseEvent(event);
    if (QGuiApplication::clipboard()->supportsSelection()) copySelection(QClipboard::Selection);
}

void WholeWords::copySelection(QClipboard::Mode mode) const
{
    if (hasSelectedText()) QGuiApplication::clipboard()->setText(asWritten(selectedText()), mode);
}

void WholeWords::resizeEvent(QResizeEvent* event)
{
    QLabel::resizeEvent(event);
    fit();
}

void WholeWords::fit()
{
    setFixedHeight(std::max(heightForWidth(width()), fontMetrics().height()));
}

}  // namespace pinorama
