#include "app/shown_text.h"

#include <QTextBoundaryFinder>

#include <algorithm>

namespace pinorama {
namespace {
constexpr QChar kEllipsis(0x2026);
constexpr qsizetype kMaxCharacterLength = 64;

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
}  // namespace

QString shownText(const QString& text)
{
    if (text.size() <= kMaxShownLength) return text;
    return text.first(lastBoundary(text)) + kEllipsis;
}

}  // namespace pinorama
