#include "app/reading_notice.h"

#include "app/shown_text.h"

#include <QAccessible>

namespace pinorama {

ReadingNotice::ReadingNotice(QWidget* parent) : ElidedField(parent)
{
    setObjectName(QStringLiteral("readingNotice"));
    // It comes and goes by itself, so it is no stop on the way through the window.
    setFocusPolicy(Qt::ClickFocus);
    setVisible(false);
}

QString ReadingNotice::wordsOfNotRead(const QString& name)
{
    //: The foot of the window; %1 is the name of a file
    return tr("%1 could not be read.").arg(name);
}

void ReadingNotice::sayStillReading(const QString& name)
{
    isStillReading_ = true;
    //: The foot of the window; %1 is the name of a file
    say(tr("Still reading %1...").arg(isolated(shownText(name))));
}

void ReadingNotice::sayNotRead(const QString& name)
{
    isStillReading_ = false;
    say(wordsOfNotRead(isolated(shownText(name))));
}

void ReadingNotice::sayNotAnswering(const QString& name)
{
    isStillReading_ = true;
    //: The foot of the window; %1 is the name of a file that is being read and takes too long, as
    //: when a network is gone
    say(tr("%1 does not answer.").arg(isolated(shownText(name))));
}

void ReadingNotice::saySidecarNotRead(const QString& name)
{
    isStillReading_ = false;
    //: The foot of the window; %1 is the name of a file. XMP is a kind of file and stays
    say(tr("The XMP file beside %1 could not be read.").arg(isolated(shownText(name))));
}

void ReadingNotice::saySidecarNotAnswering(const QString& name)
{
    isStillReading_ = true;
    //: The foot of the window; %1 is the name of a file. XMP is a kind of file and stays
    say(tr("The XMP file beside %1 does not answer.").arg(isolated(shownText(name))));
}

void ReadingNotice::endReading()
{
    if (isStillReading_) forget();
}

void ReadingNotice::forget()
{
    isStillReading_ = false;
    setVisible(false);
    clear();
}

// A screen reader reads it out and leaves the focus where it is.
void ReadingNotice::say(const QString& words)
{
    if (words == QLineEdit::text()) return;
    setSentence(words);
    setCursorPosition(0);
    setToolTip(words);
    setAccessibleName(words);
    setVisible(true);
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

}  // namespace pinorama
