#include "app/shown_text.h"

#include "base/printable.h"

#include <QTextBoundaryFinder>

#include <algorithm>
#include <utility>

namespace pinorama {
namespace {
constexpr QChar kEllipsis(0x2026);
constexpr qsizetype kMaxCharacterLength = 64;
constexpr int kMaxNameLetters = 30;

// Where to cut a text that is longer than kMaxShownLength.
qsizetype lastBoundary(const QString& text)
{
    // The finder looks at all that it is given: what may be shown, and one code point more.
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text.constData(),
                               std::min(text.size(), kMaxShownLength + 2));
    finder.setPosition(kMaxShownLength);
    if (finder.isAtBoundary()) return kMaxShownLength;
    const qsizetype boundary = finder.toPreviousBoundary();
    if (boundary >= kMaxShownLength - kMaxCharacterLength) return boundary;
    return text[kMaxShownLength].isLowSurrogate() ? kMaxShownLength - 1 : kMaxShownLength;
}

// Line breaks and tabs are laid out and do no harm.
bool mayBeShown(QChar unit)
{
    return !isDisplayControl(unit.unicode()) || unit == QLatin1Char('\n') ||
           unit == QLatin1Char('\r') || unit == QLatin1Char('\t');
}

QString withoutControls(QString text)
{
    for (qsizetype i = 0; i < text.size(); i++) {
        if (!mayBeShown(std::as_const(text)[i])) text[i] = QChar::ReplacementCharacter;
    }
    return text;
}
}  // namespace

QString shownText(const QString& text)
{
    if (text.size() <= kMaxShownLength) return withoutControls(text);
    return withoutControls(text.first(lastBoundary(text))) + kEllipsis;
}

QString shownName(const QString& name, const QFontMetrics& letters)
{
    return letters.elidedText(shownText(name), Qt::ElideMiddle,
                              kMaxNameLetters * letters.averageCharWidth());
}

}  // namespace pinorama
