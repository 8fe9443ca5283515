#include "app/whole_words.h"

#include <algorithm>

namespace pinorama {

WholeWords::WholeWords(QWidget* parent) : QLabel(parent)
{
    setWordWrap(true);
    setTextFormat(Qt::PlainText);
    setTextInteractionFlags(Qt::TextSelectableByMouse);
}

void WholeWords::say(const QString& words)
{
    setText(words);
    // Before it is shown it has no width of its own to count lines with.
    if (isVisible()) fit();
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
