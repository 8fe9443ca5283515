#include "app/wrapped_field.h"

#include "app/leading_edge.h"
#include "app/shown_text.h"

#include <QContextMenuEvent>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QScrollBar>
#include <QTextDocumentFragment>
#include <QTextLayout>

#include <algorithm>
#include <memory>

namespace pinorama {
namespace {
// The distance of a QLineEdit's text to its edge, so that the texts of both kinds stand in one
// line.
constexpr int kLineMargin = 2;

constexpr int kSmallestWidth = 16;  // characters

// Wide enough for the longest coordinate in one line.
int usualWidth(const QFontMetrics& metrics)
{
    return metrics.horizontalAdvance(QStringLiteral("N 00° 00' 00.0\"   W 000° 00' 00.0\"")) +
           2 * kLineMargin;
}
}  // namespace

WrappedField::WrappedField(QWidget* parent) : QPlainTextEdit(parent)
{
    setReadOnly(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setFocusPolicy(Qt::ClickFocus);
    setTabChangesFocus(true);
    setFrameShape(QFrame::NoFrame);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    document()->setDocumentMargin(0);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);

    setAcceptDrops(false);  // a drop is for the window
    viewport()->setAcceptDrops(false);
    viewport()->setAutoFillBackground(false);
    setBackgroundRole(QPalette::Window);
    connect(this, &QPlainTextEdit::textChanged, this, &WrappedField::adaptHeight);
    alignText();
}

// The direction stays that of each text.
void WrappedField::alignText()
{
    QTextOption option = document()->defaultTextOption();
    option.setAlignment(leadingEdge(*this));
    option.setTextDirection(Qt::LayoutDirectionAuto);
    document()->setDefaultTextOption(option);
    setViewportMargins(isRightToLeft() ? 0 : kLineMargin, topMargin_,
                       isRightToLeft() ? kLineMargin : 0, 0);
}

void WrappedField::setText(const QString& text)
{
    replaceText(text, shownText(text));
}

void WrappedField::setSentence(const QString& words)
{
    replaceText(withoutIsolation(words), words);
}

void WrappedField::replaceText(const QString& text, const QString& shown)
{
    if (text == text_) return;
    text_ = text;
    setPlainText(shown);
    // With nothing in it the field is no stop on the way through the window.
    setFocusPolicy(text.isEmpty() ? Qt::ClickFocus : Qt::StrongFocus);
    if (isHugging_) updateGeometry();
}

void WrappedField::setMaximumLines(int lines)
{
    maximumLines_ = std::max(lines, 1);
    adaptHeight();
}

void WrappedField::setGrowing(bool growing)
{
    isGrowing_ = growing;
    setSizePolicy(QSizePolicy::Expanding, growing ? QSizePolicy::Expanding : QSizePolicy::Fixed);
    adaptHeight();
}

void WrappedField::setHugging(bool hugging)
{
    isHugging_ = hugging;
    QSizePolicy policy = sizePolicy();
    policy.setHorizontalPolicy(hugging ? QSizePolicy::Maximum : QSizePolicy::Expanding);
    setSizePolicy(policy);
}

QSize WrappedField::sizeHint() const
{
    return {wantedWidth(), minimumSizeHint().height()};
}

QSize WrappedField::minimumSizeHint() const
{
    const int lines = std::clamp(lines_, 1, maximumLines_);
    const int smallest = fontMetrics().averageCharWidth() * kSmallestWidth;
    return {isHugging_ ? std::min(smallest, wantedWidth()) : smallest,
            lines * fontMetrics().lineSpacing() + 1 + topMargin_};
}

bool WrappedField::event(QEvent* event)
{
    // With nothing to copy here the key is the window's, else it is the field's.
    if (event->type() == QEvent::ShortcutOverride &&
        static_cast<QKeyEvent*>(event)->matches(QKeySequence::Copy)) {
        event->setAccepted(textCursor().hasSelection());
        return event->isAccepted();
    }
    return QPlainTextEdit::event(event);
}

QMimeData* WrappedField::createMimeDataFromSelection() const
{
    const QTextCursor selection = textCursor();
    const int end = document()->characterCount() - 1;  // there is one paragraph end more
    const bool isPart = selection.selectionStart() > 0 || selection.selectionEnd() < end;
    auto copied = std::make_unique<QMimeData>();
    copied->setText(isPart ? withoutIsolation(selection.selection().toPlainText()) : text_);
    return copied.release();
}

void WrappedField::contextMenuEvent(QContextMenuEvent* event)
{
    QMenu* menu = createStandardContextMenu(event->pos());
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (!actions().isEmpty()) {
        QAction* standard = menu->actions().value(0);
        menu->insertActions(standard, actions());
        menu->insertSeparator(standard);
    }
    menu->popup(event->globalPos());
}

void WrappedField::resizeEvent(QResizeEvent* event)
{
    QPlainTextEdit::resizeEvent(event);
    isLaidOut_ = true;
    adaptHeight();
}

void WrappedField::changeEvent(QEvent* event)
{
    QPlainTextEdit::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) adaptHeight();
    if (event->type() == QEvent::LayoutDirectionChange) alignText();
}

void WrappedField::focusInEvent(QFocusEvent* event)
{
    QPlainTextEdit::focusInEvent(event);
    // As a line does: reached with the keyboard, the text is ready to be copied.
    if (event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason ||
        event->reason() == Qt::ShortcutFocusReason) {
        selectAll();
    }
}

void WrappedField::focusOutEvent(QFocusEvent* event)
{
    QPlainTextEdit::focusOutEvent(event);
    if (event->reason() == Qt::PopupFocusReason || event->reason() == Qt::ActiveWindowFocusReason)
        return;
    QTextCursor cursor = textCursor();
    cursor.clearSelection();
    setTextCursor(cursor);
}

void WrappedField::setTopMargin(int points)
{
    if (points == topMargin_) return;
    topMargin_ = points;
    alignText();
    adaptHeight();
}

int WrappedField::wantedWidth() const
{
    const int usual = usualWidth(fontMetrics());
    if (!isHugging_) return usual;
    const int text = fontMetrics().horizontalAdvance(toPlainText().left(kSmallestWidth * 4));
    return std::min(text + 2 * kLineMargin + 1, usual);
}

int WrappedField::linesNeeded() const
{
    // Before its window is laid out the field has no width of its own to count lines with. After
    // that it is the width without a scroll bar: whether there is one depends on the lines.
    const int field = isLaidOut_ ? contentsRect().width() : usualWidth(fontMetrics());
    const int width = field - kLineMargin;  // the margin of the viewport, which alignText() sets
    int lines = 0;
    for (const QString& paragraph : toPlainText().split(QLatin1Char('\n'))) {
        QTextLayout layout(paragraph, font());
        QTextOption option;
        option.setWrapMode(wordWrapMode());
        layout.setTextOption(option);
        layout.beginLayout();
        int count = 0;
        for (QTextLine line = layout.createLine(); line.isValid() && count <= maximumLines_;
             line = layout.createLine()) {
            line.setLineWidth(width);
            ++count;
        }
        layout.endLayout();
        lines += std::max(count, 1);
        if (lines > maximumLines_) break;
    }
    return lines;
}

void WrappedField::adaptHeight()
{
    lines_ = linesNeeded();
    const int wanted = minimumSizeHint().height();
    // Without a scroll bar a text that fits must not be scrolled by the caret either. In a field
    // that is little wider than a scroll bar Qt would try with and without one for seconds.
    const bool hasRoom = contentsRect().width() > 3 * verticalScrollBar()->sizeHint().width();
    const auto policy =
        lines_ > maximumLines_ && hasRoom ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff;
    // Setting it lays the viewport out anew, even if nothing changes, which brings us here again.
    if (verticalScrollBarPolicy() != policy) setVerticalScrollBarPolicy(policy);
    const int largest = isGrowing_ ? QWIDGETSIZE_MAX : wanted;
    if (minimumHeight() == wanted && maximumHeight() == largest) return;
    setMinimumHeight(wanted);
    setMaximumHeight(largest);
    updateGeometry();
}

}  // namespace pinorama
